// The data access layer: connections, recordsets and failures, in the shape that the program's statements
// were written for. The provider named in the connection text picks the driver; the program's SQL is one
// text for all engines and is adapted by the driver. No transaction, no parameter, one statement a call.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/currency.h"

namespace kalvane::ado {

// A failure of the engine or of the layer: a number and the text that the operator's history shows.
class Error : public std::runtime_error {
  public:
    Error(long number, const std::string& text) : std::runtime_error(text), number_(number) {}
    long number() const { return number_; }

  private:
    long number_;
};

// One field of a row: NULL, a whole number, a double, or text.
class Value {
  public:
    Value() = default;
    explicit Value(std::int64_t n) : v_(n) {}
    explicit Value(double x) : v_(x) {}
    explicit Value(std::string s) : v_(std::move(s)) {}
    bool is_null() const { return std::holds_alternative<std::monostate>(v_); }
    // Text form; NULL gives "". Numbers as the shortest decimal.
    std::string text() const;
    // The text when the field holds text, else "" (no copy).
    std::string_view text_view() const;
    bool is_text() const { return std::holds_alternative<std::string>(v_); }
    // Numeric value: of a text that of its leading digits (Val); NULL gives 0.
    double number() const;
    // As currency: whole numbers exactly, doubles and texts by 通貨::from_double. Out of range: RunFailure.
    通貨 currency() const;

  private:
    std::variant<std::monostate, std::int64_t, double, std::string> v_;
};

namespace detail {
struct Session;  // an engine's open database
struct Cursor;   // an engine's running statement
}  // namespace detail

// How a connection is opened. `program` is what the program runs with: rows are read and written, nothing
// else. `reader` is the same, but a file in a folder that cannot take its log, where no log is, is read as it
// stands. `keeper` may change the schema, too; `owner` is for the set-up, which also creates a missing file.
enum class Access { program, reader, keeper, owner };

class Connection {
  public:
    int ConnectionTimeout = 15;  // seconds that another process's lock is waited for
    int CommandTimeout = 30;     // stored; the embedded engine does not use it
    int CursorLocation = 2;      // stored; 3 is the client side
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    // Opens "Provider=…;User ID=…;Password=…;Data Source=…[;Initial Catalog=…]". Error: nothing is open.
    void Open(std::string_view connection_text, Access access = Access::program);
    // Runs one statement. Error: what ran before stays.
    void Execute(std::string_view sql);
    // A copy of the database, what its log holds with it, under a program path. Error: what stood under that
    // name stands there still.
    void CopyTo(std::string_view path);
    // Forces the log and closes. Error when it is not open. Recordsets that are open on it keep the rows they
    // have read ahead and fail behind them.
    void Close();
    bool is_open() const;
    // A word for the hook and for messages ("main", "config"); the owner of the connection sets it.
    std::string name;

    const std::shared_ptr<detail::Session>& session() const { return session_; }

  private:
    std::shared_ptr<detail::Session> session_;
};

// A forward-only reader. Open reads ahead up to 1,024 rows and ends the statement when that was all; a
// longer result is stepped on as the reader comes to it. A write on the same connection first takes the rest
// of such results into memory, so that a reader sees the rows of its question and the write is not held up.
class Recordset {
  public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    // Runs a reading statement, closing a former result; the last three are the cursor, the lock and the
    // command type (0, 1, 1). Error: the recordset is as never opened.
    void Open(std::string_view sql, Connection& connection, int cursor = 0, int lock = 1, int command = 1);
    bool is_open() const { return open_; }
    bool Bof() const;  // both true when there is no row
    bool Eof() const;
    // The next row, or the end. Error past the end, and when the engine fails on the way.
    void MoveNext();
    // The LAST column of that name, without regard to the case of Latin letters. An unknown name, or no
    // current row, raises RunFailure.
    const Value& Fields(std::string_view column) const;
    // -1 when there is no such column.
    int column_index(std::string_view column) const;
    const Value& at(int index) const;
    const std::vector<std::string>& columns() const;
    // Nothing on a recordset that was never opened.
    void Close();

  private:
    bool fetch();
    bool open_ = false, bof_ = true, eof_ = true, more_ = false;
    std::shared_ptr<const std::vector<std::string>> columns_;
    std::vector<std::vector<Value>> rows_;
    std::size_t row_ = 0;
    std::unique_ptr<detail::Cursor> cursor_;
};

// The database hook of tests and measurements: called with the connection and the statement text as the
// program built it, before it runs. It may throw Error to make the statement fail.
struct Hook {
    std::function<void(const Connection&, std::string_view)> before;
};
inline Hook hook;

// Forces the logs of all open connections that have written since the last call, those named "main" first.
// Errors are ignored: the statements stand all the same.
void force_logs();
// How many statements have written on the connections named "main" since the process began; the event
// dispatch compares it. The notes kept beside the business (a failure leaves one itself) do not count.
std::uint64_t write_count();
// Scales the waiting for other processes' locks (1.0 is the real time); tests turn it down.
inline double lock_wait_scale = 1.0;

}  // namespace kalvane::ado
