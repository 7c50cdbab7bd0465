// Installations in folders of their own, and readers of what stands in them.
#pragma once
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/ado.h"
#include "platform/ado_support.h"
#include "setup/command.h"
#include "setup/install.h"
#include "setup/schema.h"
#include "support/temp_folder.h"

namespace kalvane::test {

struct Installation {
    TempFolder folder;
    std::string root = folder.native("root");

    explicit Installation(setup::Content content = setup::Content::demo) {
        setup::create_installation({.root = root, .programs = folder.native("bin"), .content = content});
    }
    std::string rows(std::string_view sql, std::string_view file = setup::main_file,
                     ado::Access access = ado::Access::program) const {
        ado::Connection connection;
        setup::open_database(connection, root, file, access);
        return rows_of(connection, sql);
    }
    void run(std::string_view sql, std::string_view file = setup::main_file) const {
        ado::Connection connection;
        setup::open_database(connection, root, file, ado::Access::owner);
        connection.Execute(sql);
        connection.Close();
    }
};

// The demonstration company that tests only read, made once.
inline const Installation& demo() {
    static const Installation installation;
    return installation;
}

struct Outcome {
    int status;
    std::string out, err;
};
inline Outcome command(const std::vector<std::string>& arguments, const std::string& programs = "/nowhere") {
    std::ostringstream out, err;
    const int status = setup::run_command(arguments, programs, out, err);
    return {status, out.str(), err.str()};
}

}  // namespace kalvane::test
