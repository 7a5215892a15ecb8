#ifndef OLT_APP_IMAGE_ARGUMENT_H
#define OLT_APP_IMAGE_ARGUMENT_H

#include <string>

#include "app/Arguments.h"
#include "app/Command.h"

namespace olt {

constexpr std::uint16_t kSoftwareImageClass = 7;

/// Which software image (G.988 9.1.4) a command is for: its instance as a word or as an option.
class ImageArgument
{
public:
    void declare(Options& options)
    {
        options.positional("INSTANCE", m_Word, "The image's instance, 0 or 1", Options::Need::Optional);
        declareOption(options);
    }
    /// Where the words are taken by something else.
    void declareOption(Options& options) { options.text("--instance", m_Option, "The image's instance, 0 or 1", "N"); }

    /// Throws UsageError when it is missing, given twice, or no number.
    [[nodiscard]] EntityId resolve(const Catalogue& catalogue) const
    {
        if (m_Word.empty() && m_Option.empty())
            throw UsageError("which image? --instance N is needed; \"images\" shows both");
        if (!m_Word.empty() && !m_Option.empty())
            throw UsageError("the instance is given twice: " + m_Word + " and --instance " + m_Option);
        return {&catalogue.ofNumber(kSoftwareImageClass), parseInstance(m_Word.empty() ? m_Option : m_Word)};
    }

private:
    std::string m_Word;
    std::string m_Option;
};

}  // namespace olt

#endif
