// The connection text of the data access layer: "Key=value;Key=value;…".
#pragma once
#include <string>
#include <string_view>

namespace kalvane::ado {

struct ConnectionText {
    std::string provider, user, password, data_source, catalog;
};

// Takes the text apart. Keys without regard to case, blanks round keys and values cut, unknown keys skipped.
ConnectionText parse_connection_text(std::string_view text);

}  // namespace kalvane::ado
