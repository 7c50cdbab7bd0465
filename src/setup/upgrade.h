// Brings the databases of an installation of an earlier version to the tables of this one.
#pragma once
#include <string_view>

namespace kalvane::setup {

// In place and once only: one transaction a database file, with the version as its last write, so that
// whatever breaks it off, each file is wholly of the former version or wholly of this one, and the next call
// goes on. Rows stay, and so do columns, indexes and triggers that the schema does not know. Nothing is done
// to a file of this version. SetupError: no installation, one whose version is unknown or newer (nothing was
// changed), or a file that could not be brought over (this one and those behind it are as they were).
void upgrade_installation(std::string_view root);

}  // namespace kalvane::setup
