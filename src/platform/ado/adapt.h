// Adapts the program's SQL, which is one text for all engines, to what an engine takes. Text in quotes is
// never touched, and what is not recognised is left alone.
//
// To add a rule: write its function in adapt.cpp, give it a row in the table there (the engines that need it,
// a word without which it cannot apply), and test it by running the result.
#pragma once
#include <string>
#include <string_view>

namespace kalvane::ado {

enum Engine : unsigned { engine_sqlite = 1 };

// The text to run: sql itself when no rule applies (the usual case, decided without copying), else the
// adapted text, which lies in storage.
std::string_view adapt(std::string_view sql, Engine engine, std::string& storage);

}  // namespace kalvane::ado
