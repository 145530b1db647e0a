#include "sim_store.h"

#include <sqlite3.h>

namespace LiveViewSimulator {
namespace {

constexpr int BUSY_TIMEOUT_MS = 5000;

const char* const SCHEMA = R"sql(
PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;
CREATE TABLE IF NOT EXISTS publishes(seq INTEGER PRIMARY KEY AUTOINCREMENT, at_millis INTEGER NOT NULL,
  bundle TEXT NOT NULL, uid INTEGER NOT NULL, live_view_id INTEGER NOT NULL, operation TEXT NOT NULL,
  request TEXT NOT NULL, code INTEGER NOT NULL, message TEXT NOT NULL, field TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS held(bundle TEXT NOT NULL, uid INTEGER NOT NULL, live_view_id INTEGER NOT NULL,
  ended INTEGER NOT NULL, request TEXT NOT NULL, PRIMARY KEY(bundle, uid, live_view_id));
CREATE TABLE IF NOT EXISTS slots(bundle TEXT NOT NULL, uid INTEGER NOT NULL, enabled INTEGER NOT NULL,
  PRIMARY KEY(bundle, uid));
)sql";

// Indexes into the store's statements and their text, in the same order.
enum Statement {
    BEGIN,
    COMMIT,
    ROLLBACK,
    INSERT_PUBLISH,
    PUT_HELD,
    DELETE_HELD,
    CLEAR_HELD,
    PUT_SLOT,
    SELECT_HELD,
    SELECT_SLOTS,
    SELECT_HISTORY,
    COUNT_PUBLISHES,
    STATEMENT_COUNT
};

const char* const STATEMENT_SQL[STATEMENT_COUNT] = {
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
    "INSERT INTO publishes(at_millis, bundle, uid, live_view_id, operation, request, code, message,"
    " field) VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)",
    "INSERT OR REPLACE INTO held(bundle, uid, live_view_id, ended, request)"
    " VALUES(?1, ?2, ?3, ?4, ?5)",
    "DELETE FROM held WHERE bundle = ?1 AND uid = ?2 AND live_view_id = ?3",
    "DELETE FROM held",
    "INSERT OR REPLACE INTO slots(bundle, uid, enabled) VALUES(?1, ?2, ?3)",
    "SELECT bundle, uid, live_view_id, ended, request FROM held ORDER BY bundle, uid, live_view_id",
    "SELECT bundle, uid, enabled FROM slots ORDER BY bundle, uid",
    "SELECT seq, at_millis, bundle, uid, live_view_id, operation, request, code, message, field"
    " FROM publishes WHERE seq > ?1 ORDER BY seq DESC LIMIT ?2",
    "SELECT count(*) FROM publishes",
};

// Resets a statement and drops its bindings when the scope ends, so that no statement keeps a
// pointer to a caller's text or stays open in the middle of a read (which would block COMMIT).
// Reset's own code repeats the last step's, which the step's caller has already seen.
class ResetOnExit {
public:
    explicit ResetOnExit(sqlite3_stmt* statement) : statement_(statement) {}
    ~ResetOnExit() {
        static_cast<void>(sqlite3_reset(statement_));
        static_cast<void>(sqlite3_clear_bindings(statement_));
    }

private:
    sqlite3_stmt* statement_;
};

// Texts are bound without a copy: they outlive the statement's run, after which the bindings are
// cleared.
int BindOne(sqlite3_stmt* statement, int index, const std::string& value) {
    return sqlite3_bind_text64(statement, index, value.data(), value.size(), SQLITE_STATIC,
                               SQLITE_UTF8);
}
int BindOne(sqlite3_stmt* statement, int index, int64_t value) {
    return sqlite3_bind_int64(statement, index, value);
}

// Binds values to parameters 1, 2, ... in order.
template <typename... Values>
bool Bind([[maybe_unused]] sqlite3_stmt* statement, const Values&... values) {
    [[maybe_unused]] int index = 0;  // unused when there are no values
    return ((BindOne(statement, ++index, values) == SQLITE_OK) && ...);
}

bool Fail(sqlite3* db, std::string& error) {
    error = sqlite3_errmsg(db);
    return false;
}

// Binds values and steps the statement to its end.
template <typename... Values>
bool Run(sqlite3* db, sqlite3_stmt* statement, std::string& error, const Values&... values) {
    ResetOnExit reset(statement);
    if (!Bind(statement, values...) || sqlite3_step(statement) != SQLITE_DONE) {
        return Fail(db, error);
    }
    return true;
}

std::string Text(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text == nullptr ? std::string()
                           : std::string(text, sqlite3_column_bytes(statement, column));
}

int32_t Int(sqlite3_stmt* statement, int column) {
    return sqlite3_column_int(statement, column);
}

}  // namespace

SimStore::SimStore(sqlite3* db) : db_(db), statements_(STATEMENT_COUNT, nullptr) {}

SimStore::~SimStore() {
    for (sqlite3_stmt* statement : statements_) {
        static_cast<void>(sqlite3_finalize(statement));
    }
    // Every statement is finalized, so the close cannot be refused.
    static_cast<void>(sqlite3_close(db_));
}

std::unique_ptr<SimStore> SimStore::Open(const std::string& path, std::string& error) {
    sqlite3* db = nullptr;
    const int opened =
        sqlite3_open_v2(path.empty() ? ":memory:" : path.c_str(), &db,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    // The store owns the connection from here on, even a failed one, which must still be closed.
    std::unique_ptr<SimStore> store(new SimStore(db));
    if (opened != SQLITE_OK || sqlite3_busy_timeout(db, BUSY_TIMEOUT_MS) != SQLITE_OK ||
        sqlite3_exec(db, SCHEMA, nullptr, nullptr, nullptr) != SQLITE_OK ||
        !store->Prepare(error)) {
        error = "cannot open the database \"" + path +
                "\": " + (db == nullptr ? sqlite3_errstr(opened) : sqlite3_errmsg(db));
        return nullptr;
    }
    return store;
}

bool SimStore::Prepare(std::string& error) {
    for (int i = 0; i < STATEMENT_COUNT; ++i) {
        if (sqlite3_prepare_v3(db_, STATEMENT_SQL[i], -1, SQLITE_PREPARE_PERSISTENT,
                               &statements_[i], nullptr) != SQLITE_OK) {
            return Fail(db_, error);
        }
    }
    return true;
}

bool SimStore::InTransaction(const std::function<bool(std::string&)>& work, std::string& error) {
    if (!Run(db_, statements_[BEGIN], error)) {
        return false;
    }
    if (work(error) && Run(db_, statements_[COMMIT], error)) {
        return true;
    }
    // A failed COMMIT may leave the transaction open; a failed statement always does.
    std::string rollbackError;
    if (sqlite3_get_autocommit(db_) == 0 && !Run(db_, statements_[ROLLBACK], rollbackError)) {
        error += "; and the rollback failed: " + rollbackError;
    }
    return false;
}

bool SimStore::PutHeld(const std::string& bundle, int32_t uid, int32_t liveViewId,
                       const HeldRow& held, std::string& error) {
    return Run(db_, statements_[PUT_HELD], error, bundle, uid, liveViewId, held.ended,
               held.request);
}

bool SimStore::RecordPublish(PublishRow& row, const HeldRow* heldAfter, std::string& error) {
    std::lock_guard<std::mutex> lock(mutex_);
    int64_t seq = 0;
    const bool recorded = InTransaction(
        [&](std::string& failure) {
            if (!Run(db_, statements_[INSERT_PUBLISH], failure, row.atMillis, row.bundle, row.uid,
                     row.liveViewId, row.operation, row.request, row.code, row.message,
                     row.field)) {
                return false;
            }
            seq = sqlite3_last_insert_rowid(db_);
            return heldAfter != nullptr
                       ? PutHeld(row.bundle, row.uid, row.liveViewId, *heldAfter, failure)
                       : Run(db_, statements_[DELETE_HELD], failure, row.bundle, row.uid,
                             row.liveViewId);
        },
        error);
    if (recorded) {
        row.seq = seq;
    }
    return recorded;
}

bool SimStore::ReplaceHeld(const std::vector<HeldRow>& held, std::string& error) {
    std::lock_guard<std::mutex> lock(mutex_);
    return InTransaction(
        [&](std::string& failure) {
            if (!Run(db_, statements_[CLEAR_HELD], failure)) {
                return false;
            }
            for (const HeldRow& row : held) {
                if (!PutHeld(row.bundle, row.uid, row.liveViewId, row, failure)) {
                    return false;
                }
            }
            return true;
        },
        error);
}

bool SimStore::SetSlot(const SlotRow& slot, std::string& error) {
    std::lock_guard<std::mutex> lock(mutex_);
    return Run(db_, statements_[PUT_SLOT], error, slot.bundle, slot.uid, slot.enabled);
}

std::vector<HeldRow> SimStore::Held() {
    std::lock_guard<std::mutex> lock(mutex_);
    sqlite3_stmt* statement = statements_[SELECT_HELD];
    ResetOnExit reset(statement);
    std::vector<HeldRow> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        rows.push_back({Text(statement, 0), Int(statement, 1), Int(statement, 2),
                        Int(statement, 3) != 0, Text(statement, 4)});
    }
    return rows;
}

std::vector<SlotRow> SimStore::Slots() {
    std::lock_guard<std::mutex> lock(mutex_);
    sqlite3_stmt* statement = statements_[SELECT_SLOTS];
    ResetOnExit reset(statement);
    std::vector<SlotRow> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        rows.push_back({Text(statement, 0), Int(statement, 1), Int(statement, 2) != 0});
    }
    return rows;
}

std::vector<PublishRow> SimStore::History(int limit, int64_t afterSeq) {
    std::lock_guard<std::mutex> lock(mutex_);
    sqlite3_stmt* statement = statements_[SELECT_HISTORY];
    ResetOnExit reset(statement);
    std::vector<PublishRow> rows;
    // A negative LIMIT is no limit.
    if (!Bind(statement, afterSeq, static_cast<int64_t>(limit > 0 ? limit : -1))) {
        return rows;
    }
    while (sqlite3_step(statement) == SQLITE_ROW) {
        rows.push_back({sqlite3_column_int64(statement, 0), sqlite3_column_int64(statement, 1),
                        Text(statement, 2), Int(statement, 3), Int(statement, 4),
                        Text(statement, 5), Text(statement, 6), Int(statement, 7),
                        Text(statement, 8), Text(statement, 9)});
    }
    return rows;
}

int64_t SimStore::PublishCount() {
    std::lock_guard<std::mutex> lock(mutex_);
    sqlite3_stmt* statement = statements_[COUNT_PUBLISHES];
    ResetOnExit reset(statement);
    return sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : -1;
}

}  // namespace LiveViewSimulator
