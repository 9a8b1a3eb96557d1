#include "tests/support/ui/test_shop.h"

#include "platform/code_page.h"

namespace support {

std::string TestShop::Text(std::string_view fileName) const {
    std::string text = platform::DecodeWindows1252(folder.Read(fileName));
    for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at)) {
        text.erase(at, 1);
    }
    return text;
}

}  // namespace support
