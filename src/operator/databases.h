// The databases of the installation as another station sees them: each call opens a connection of its own.
#pragma once
#include <string>
#include <string_view>

namespace kalvane::script {

enum class Database { main, config };

// Runs a statement. Throws ado::Error.
void execute_sql(Database database, const std::string& sql);
// The rows of a reading statement: values joined by "|", NULL as NULL, rows joined by line breaks. Throws
// ado::Error.
std::string query_sql(Database database, const std::string& sql);
// Answers the newest request row for a program as that program would, and takes the request away. False
// when there is none. Throws ado::Error.
bool reply_to_request(const std::string& program, const std::string& reply);

}  // namespace kalvane::script
