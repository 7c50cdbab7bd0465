// The stored form of secret texts (PIN columns): encrypted and authenticated under a key file of the
// installation.
#pragma once
#include <string>
#include <string_view>

namespace kalvane::os {

inline constexpr const char* key_file_name = "secret.key";  // in the installation's conf

// The key file, as a program path; "" for none.
void set_key_file(std::string_view path);
// Makes a key file that its owner and group alone can read. One that exists stays. FileError when it cannot
// be written.
void create_key_file(std::string_view path);
// Plain text into its stored form. FileError without a readable key. An empty text stays empty.
std::string 暗号化(std::string_view plain);
// Stored form into plain text. Anything that cannot be read - no key, another key, a damaged text - gives an
// empty text, which matches no PIN.
std::string 復号(std::string_view stored);

// One line of standard input, without echo on a terminal.
std::string read_secret_line();

}  // namespace kalvane::os
