// A database file in a folder of its own, with the owner's connection to it.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/ado.h"
#include "support/temp_folder.h"

namespace kalvane::test {

inline std::string connection_text(const TempFolder& folder, std::string_view file = "main.accdb") {
    return "Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source=" + folder.program(file) + ";";
}

struct Database {
    explicit Database(const std::vector<std::string>& statements = {}) {
        owner.Open(connection_text(folder), ado::Access::owner);
        for (const std::string& statement : statements) owner.Execute(statement);
        program.Open(connection_text(folder));
        program.name = "main";
    }
    ~Database() { ado::hook = {}; }
    TempFolder folder;
    ado::Connection owner, program;
};

// The rows of a result, values joined by "|", rows by "/".
inline std::string rows_of(ado::Connection& connection, std::string_view sql) {
    ado::Recordset rs;
    std::string result;
    for (rs.Open(sql, connection); !rs.Eof(); rs.MoveNext()) {
        if (!result.empty()) result += '/';
        for (int i = 0; i < static_cast<int>(rs.columns().size()); ++i)
            result += (i ? "|" : "") + (rs.at(i).is_null() ? "NULL" : rs.at(i).text());
    }
    return result;
}

// A table N of rows 1 to rows, "row 1" and so on.
inline std::vector<std::string> numbered(int rows) {
    return {"CREATE TABLE N (i INTEGER PRIMARY KEY, t TEXT)",
            "INSERT INTO N WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < " +
                std::to_string(rows) + ") SELECT i, 'row ' || i FROM c WHERE i <= " + std::to_string(rows)};
}

}  // namespace kalvane::test
