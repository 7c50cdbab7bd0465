// Connections and recordsets over the drivers.
#include "platform/ado/ado.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/failure.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/ado/driver.h"

namespace kalvane::ado {
namespace {

constexpr std::size_t read_ahead = 1024;

struct Provider {
    std::string_view name;
    const detail::Driver* driver;
};

constexpr std::array providers{
    Provider{"Microsoft.ACE.OLEDB.12.0", &detail::sqlite_driver},
    Provider{"Microsoft.Jet.OLEDB.4.0", &detail::sqlite_driver},
};

// Never destroyed: connections of global records end after this file's globals.
std::vector<Connection*>& open_connections() {
    static auto* list = new std::vector<Connection*>;
    return *list;
}

std::uint64_t writes = 0;  // on business connections

bool is_business(const Connection& connection) {
    return connection.name == "main";
}

detail::Session& require_open(const Connection& connection) {
    if (!connection.is_open()) throw Error(detail::layer_error, "the connection is not open");
    return *connection.session();
}

void force_log(detail::Session& session) {
    if (!session.wrote) return;
    session.wrote = false;
    session.driver.force_log(session);
}

}  // namespace

std::string Value::text() const {
    if (const auto* s = std::get_if<std::string>(&v_)) return *s;
    if (const auto* n = std::get_if<std::int64_t>(&v_)) return std::to_string(*n);
    if (const auto* x = std::get_if<double>(&v_)) return plain_number(*x);
    return {};
}

std::string_view Value::text_view() const {
    const auto* s = std::get_if<std::string>(&v_);
    return s ? std::string_view(*s) : std::string_view();
}

double Value::number() const {
    if (const auto* n = std::get_if<std::int64_t>(&v_)) return static_cast<double>(*n);
    if (const auto* x = std::get_if<double>(&v_)) return *x;
    return Val(text_view());
}

通貨 Value::currency() const {
    if (const auto* n = std::get_if<std::int64_t>(&v_)) return 通貨::whole(*n);
    return 通貨::from_double(number());
}

Connection::Connection() = default;

Connection::~Connection() {
    try {
        if (is_open()) Close();
    } catch (const Error&) {
        // nobody is left to tell
    }
}

void Connection::Open(std::string_view connection_text, Access access) {
    if (is_open()) throw Error(detail::layer_error, "the connection is already open");
    const ConnectionText text = parse_connection_text(connection_text);
    const auto* provider = std::find_if(providers.begin(), providers.end(),
                                        [&](const Provider& p) { return equal_fold(p.name, text.provider); });
    if (provider == providers.end())
        throw Error(detail::layer_error, "no driver for provider " + text.provider);
    const int wait_ms = static_cast<int>(ConnectionTimeout * 1000 * lock_wait_scale);
    session_ = provider->driver->open(text, access, wait_ms);
    open_connections().push_back(this);
}

void Connection::Execute(std::string_view sql) {
    detail::Session& session = require_open(*this);
    if (hook.before) hook.before(*this, sql);
    if (!session.driver.execute(session, sql)) return;
    session.wrote = true;
    if (is_business(*this)) ++writes;
}

void Connection::CopyTo(std::string_view path) {
    detail::Session& session = require_open(*this);
    session.driver.copy(session, path);
}

void Connection::Close() {
    const std::shared_ptr<detail::Session> session = session_;
    require_open(*this);
    session_.reset();
    std::erase(open_connections(), this);
    try {
        force_log(*session);
    } catch (const Error&) {
        // the statements stand, and closing must go on
    }
    session->driver.close(*session);
}

bool Connection::is_open() const {
    return session_ != nullptr;
}

Recordset::Recordset() = default;
Recordset::~Recordset() = default;

Recordset::Recordset(Recordset&& other) noexcept {
    *this = std::move(other);
}

Recordset& Recordset::operator=(Recordset&& other) noexcept {
    if (this == &other) return *this;
    open_ = std::exchange(other.open_, false);
    bof_ = std::exchange(other.bof_, true);
    eof_ = std::exchange(other.eof_, true);
    more_ = std::exchange(other.more_, false);
    row_ = std::exchange(other.row_, 0);
    columns_ = std::move(other.columns_);
    rows_ = std::move(other.rows_);
    cursor_ = std::move(other.cursor_);
    other.columns_.reset();
    other.rows_.clear();
    return *this;
}

void Recordset::Open(std::string_view sql, Connection& connection, int, int, int) {
    Close();
    detail::Session& session = require_open(connection);
    if (hook.before) hook.before(connection, sql);
    cursor_ = session.driver.query(connection.session(), sql);
    more_ = true;
    try {
        while (rows_.size() < read_ahead && more_) {
            rows_.emplace_back();
            more_ = session.driver.step(*cursor_, rows_.back());
        }
    } catch (...) {
        Close();
        throw;
    }
    columns_ = cursor_->columns;  // known for sure once the statement has run
    if (!more_) {
        rows_.pop_back();
        cursor_.reset();
    }
    open_ = true;
    bof_ = eof_ = rows_.empty();
}

bool Recordset::Bof() const {
    return bof_;
}
bool Recordset::Eof() const {
    return eof_;
}

bool Recordset::fetch() {
    rows_.resize(1);
    row_ = 0;
    if (more_) more_ = cursor_->driver.step(*cursor_, rows_[0]);
    return more_;
}

void Recordset::MoveNext() {
    if (!open_ || eof_) throw Error(detail::layer_error, "there is no next row");
    if (row_ + 1 < rows_.size()) {
        ++row_;
        return;
    }
    eof_ = true;  // also when the engine fails
    bool found = false;
    try {
        found = fetch();
    } catch (const Error&) {
        more_ = false;
        cursor_.reset();
        throw;
    }
    eof_ = !found;
    if (!found) cursor_.reset();
}

const Value& Recordset::Fields(std::string_view column) const {
    const int index = column_index(column);
    if (index < 0) throw RunFailure("項目がありません: " + std::string(column));
    return at(index);
}

int Recordset::column_index(std::string_view column) const {
    const std::vector<std::string>& names = columns();
    for (std::size_t i = names.size(); i-- > 0;)
        if (names[i].size() == column.size() && (names[i] == column || equal_fold(names[i], column)))
            return static_cast<int>(i);
    return -1;
}

const Value& Recordset::at(int index) const {
    if (!open_ || eof_) throw RunFailure("現在の行がありません。");
    const detail::Row& row = rows_[row_];
    if (index < 0 || static_cast<std::size_t>(index) >= row.size()) throw RunFailure(index_text);
    return row[static_cast<std::size_t>(index)];
}

const std::vector<std::string>& Recordset::columns() const {
    static const std::vector<std::string> none;
    return columns_ ? *columns_ : none;
}

void Recordset::Close() {
    open_ = more_ = false;
    bof_ = eof_ = true;
    row_ = 0;
    columns_.reset();
    rows_.clear();
    cursor_.reset();
}

void force_logs() {
    for (const bool business : {true, false})
        for (Connection* connection : open_connections()) {
            if (is_business(*connection) != business) continue;
            try {
                force_log(*connection->session());
            } catch (const Error&) {
                // the statements stand all the same
            }
        }
}

std::uint64_t write_count() {
    return writes;
}

}  // namespace kalvane::ado
