// What an engine gives to the data access layer: one table of functions over its own kinds of session and
// cursor. Every function reports a failure as ado::Error.
#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/ado.h"
#include "platform/ado/connection_text.h"

namespace kalvane::ado::detail {

using Row = std::vector<Value>;
using ColumnNames = std::shared_ptr<const std::vector<std::string>>;

struct Driver {
    // Opens the database; a lock of another process is waited for up to wait_ms in every statement.
    std::shared_ptr<Session> (*open)(const ConnectionText& text, Access access, int wait_ms);
    // Runs one statement to its end; true when it is a writing one.
    bool (*execute)(Session& session, std::string_view sql);
    // Starts a reading statement.
    std::unique_ptr<Cursor> (*query)(const std::shared_ptr<Session>& session, std::string_view sql);
    // The next row into row, or false at the end. An error ends the cursor.
    bool (*step)(Cursor& cursor, Row& row);
    // Copies the database as it is now into a file of that program path, or leaves the path as it was.
    void (*copy)(Session& session, std::string_view path);
    // Forces what was written to the disk.
    void (*force_log)(Session& session);
    // Ends every statement and closes; cursors that still run fail from then on.
    void (*close)(Session& session);
};

struct Session {
    explicit Session(const Driver& engine) : driver(engine) {}
    const Driver& driver;
    bool wrote = false;  // since the log was forced last
};

struct Cursor {
    explicit Cursor(const Driver& engine) : driver(engine) {}
    virtual ~Cursor() = default;
    const Driver& driver;
    ColumnNames columns;
};

// Failures of the layer itself carry this number; those of an engine carry the engine's.
inline constexpr long layer_error = 3000;

extern const Driver sqlite_driver;

}  // namespace kalvane::ado::detail
