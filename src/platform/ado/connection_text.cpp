// Cuts connection texts into keys and values.
#include "platform/ado/connection_text.h"

#include <array>

#include "base/text.h"

namespace kalvane::ado {
namespace {

struct Item {
    std::string_view key;
    std::string ConnectionText::*member;
};

constexpr std::array items{
    Item{"Provider", &ConnectionText::provider},       Item{"User ID", &ConnectionText::user},
    Item{"Password", &ConnectionText::password},       Item{"Data Source", &ConnectionText::data_source},
    Item{"Initial Catalog", &ConnectionText::catalog},
};

}  // namespace

ConnectionText parse_connection_text(std::string_view text) {
    ConnectionText result;
    while (!text.empty()) {
        const std::size_t end = text.find(';');
        const std::string_view part = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        const std::size_t equals = part.find('=');
        if (equals == std::string_view::npos) continue;
        const std::string key = Trim(part.substr(0, equals));
        for (const Item& item : items)
            if (equal_fold(item.key, key)) result.*item.member = Trim(part.substr(equals + 1));
    }
    return result;
}

}  // namespace kalvane::ado
