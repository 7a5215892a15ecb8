#include "model/XmlText.h"

namespace olt {

std::string xmlText(const std::string& text)
{
    std::string out;
    for (const char c : text) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else if (static_cast<unsigned char>(c) >= 0x20)
            out += c;
    }
    return out;
}

}  // namespace olt
