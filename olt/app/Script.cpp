#include "app/Script.h"

#include "model/Errors.h"

namespace olt {

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::size_t kLongestLine = std::size_t{64} * 1024;

class WordSplitter
{
public:
    explicit WordSplitter(std::string_view line) : m_Line(line) {}

    std::vector<std::string> split()
    {
        for (; m_At < m_Line.size(); ++m_At) {
            const char c = m_Line[m_At];
            if (kBlanks.find(c) != std::string_view::npos)
                endWord();
            else if (c == '#' && !m_InWord)
                break;
            else
                take(c);
        }
        endWord();
        return std::move(m_Words);
    }

private:
    void take(char c)
    {
        m_InWord = true;
        if (c == '\'' || c == '"')
            takeQuoted(c);
        else if (c == '\\')
            m_Word += escaped();
        else
            m_Word += c;
    }

    void takeQuoted(char quote)
    {
        for (++m_At; m_At < m_Line.size() && m_Line[m_At] != quote; ++m_At)
            m_Word += m_Line[m_At] == '\\' && quote == '"' ? escaped() : m_Line[m_At];
        if (m_At >= m_Line.size())
            throw UsageError(std::string("the quote ") + quote + " is never closed");
    }

    char escaped()
    {
        if (++m_At >= m_Line.size())
            throw UsageError("nothing follows the backslash");
        return m_Line[m_At];
    }

    void endWord()
    {
        if (m_InWord)
            m_Words.push_back(std::move(m_Word));
        m_Word.clear();
        m_InWord = false;
    }

    std::string_view m_Line;
    std::size_t m_At = 0;
    std::string m_Word;
    bool m_InWord = false;
    std::vector<std::string> m_Words;
};

std::string trimmed(const std::string& text)
{
    const auto first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::vector<std::string> splitWords(std::string_view line)
{
    return WordSplitter(line).split();
}

std::vector<ScriptLine> readScript(std::istream& input, const std::string& name)
{
    std::vector<ScriptLine> lines;
    std::string text;
    for (std::size_t number = 1; std::getline(input, text); ++number) {
        const std::string where = name + ":" + std::to_string(number) + ": ";
        if (text.size() > kLongestLine)
            throw UsageError(where + "the line has more than " + std::to_string(kLongestLine) + " characters");
        if (text.find('\0') != std::string::npos)
            throw UsageError(where + "the line holds a zero byte; this is no text file");
        try {
            auto words = splitWords(text);
            if (!words.empty())
                lines.push_back({number, trimmed(text), std::move(words)});
        } catch (const UsageError& error) {
            throw UsageError(where + error.what());
        }
    }
    if (input.bad())
        throw UsageError(name + ": can't be read");
    return lines;
}

}  // namespace olt
