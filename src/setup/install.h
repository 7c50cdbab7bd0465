// Lays down an installation under a root folder: its folders, databases, links to the programs.
#pragma once
#include <array>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/ado.h"
#include "setup/schema.h"

namespace kalvane::setup {

inline constexpr std::string_view main_file = "data/kalvane.accdb";
inline constexpr std::string_view config_file = "conf/usrcnfg.accdb";

// The configuration database comes last: with its version an installation is complete.
struct DatabaseFile {
    std::string_view file;
    Database kind;
};
inline constexpr auto databases = std::to_array<DatabaseFile>({
    {main_file, main_database},
    {"data/gnrdb.accdb", other_database},
    {"report/repdb.accdb", other_database},
    {"report/repfrmdb.accdb", other_database},
    {config_file, config_database},
});

// A set-up that cannot be done; the text is for the person at the keyboard.
class SetupError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

enum class Content { empty, demo };

struct CreateRequest {
    std::string root;      // native path, absolute or from the current folder
    std::string programs;  // native folder of the built programs; those that stand there are linked
    Content content = Content::empty;
};

// The native path, absolute and without "." and "..". SetupError when the databases could not be named or the
// program could not find its root by it.
std::string checked_root(std::string_view root);
// Makes the installation. SetupError: the root holds an installation already (nothing was changed), or
// something failed (the databases made by this call are taken away again; folders stay).
void create_installation(const CreateRequest& request);
// Version that a database of the installation tells, 0 when it is missing or tells none.
int stored_version(const std::string& root, const DatabaseFile& database);
// Version of the installation under root: its number, 0 when there are databases that tell none, -1 when
// there are no databases.
int installed_version(std::string_view root);
// Stores a PIN in capitals, as the sign-on compares it: an operator's, or with site the site's own, which
// opens every sign-on there. SetupError: no such row, a PIN too short; os::FileError: no key file. Nothing
// was changed then.
void set_pin(std::string_view root, std::string_view code, bool site, std::string_view pin);
// Opens a database of the installation, "data/kalvane.accdb" and the like, by the name that the root's native
// path and this one make. SetupError when that fails.
void open_database(ado::Connection& connection, const std::string& root, std::string_view file,
                   ado::Access access);

}  // namespace kalvane::setup
