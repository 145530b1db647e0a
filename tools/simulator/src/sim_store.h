// The simulator's store in SQLite: every publish with its answer, the live views the service holds,
// and each app's slot switch, so that a simulator started again on the same file resumes where the
// last one stopped. A store opened on "" lives in memory, so one code path serves both.
//
// Thread safety: every member may be called from any thread; calls are made one at a time on the
// store's single connection.
#ifndef LIVEVIEW_SIMULATOR_SIM_STORE_H
#define LIVEVIEW_SIMULATOR_SIM_STORE_H

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace LiveViewSimulator {

// One publish and its answer.
struct PublishRow {
    int64_t seq = 0;       // assigned by the store
    int64_t atMillis = 0;  // service clock
    std::string bundle;
    int32_t uid = 0;
    int32_t liveViewId = 0;
    std::string operation;  // create, update, end, full-update
    std::string request;    // wire JSON text
    int32_t code = 0;
    std::string message;
    std::string field;
};

struct HeldRow {
    std::string bundle;
    int32_t uid = 0;
    int32_t liveViewId = 0;
    bool ended = false;
    std::string request;  // wire JSON text
};

struct SlotRow {
    std::string bundle;
    int32_t uid = 0;
    bool enabled = false;
};

class SimStore {
public:
    // Opens (creating) the database at path in WAL mode with synchronous=NORMAL, creating the
    // tables if missing; path "" opens a private in-memory database. Null with error set on
    // failure.
    static std::unique_ptr<SimStore> Open(const std::string& path, std::string& error);
    ~SimStore();
    SimStore(const SimStore&) = delete;
    SimStore& operator=(const SimStore&) = delete;

    // One transaction, committed before returning: appends row (setting row.seq), then puts
    // heldAfter's ended and request as the held row of (row.bundle, row.uid, row.liveViewId), or
    // deletes that held row when heldAfter is null. False with error set on failure, and then
    // nothing of it is kept and row.seq is unchanged.
    bool RecordPublish(PublishRow& row, const HeldRow* heldAfter, std::string& error);
    // Replaces every held row by held, in one transaction. False with error set on failure, and
    // then the held rows are as they were.
    bool ReplaceHeld(const std::vector<HeldRow>& held, std::string& error);
    // Puts the slot switch of (slot.bundle, slot.uid). False with error set on failure.
    bool SetSlot(const SlotRow& slot, std::string& error);

    // The reads give what could be read: empty (or cut short) when the database fails.
    std::vector<HeldRow> Held();   // by bundle, uid, id
    std::vector<SlotRow> Slots();  // by bundle, uid
    // At most limit rows (every row when limit <= 0), newest first, only those with
    // seq > afterSeq.
    std::vector<PublishRow> History(int limit, int64_t afterSeq = 0);
    // -1 when the database cannot be read.
    int64_t PublishCount();

private:
    explicit SimStore(sqlite3* db);
    bool Prepare(std::string& error);
    // Runs work between BEGIN and COMMIT; rolls back when either fails.
    bool InTransaction(const std::function<bool(std::string&)>& work, std::string& error);
    bool PutHeld(const std::string& bundle, int32_t uid, int32_t liveViewId, const HeldRow& held,
                 std::string& error);

    std::mutex mutex_;
    sqlite3* db_;
    std::vector<sqlite3_stmt*> statements_;  // prepared once, finalized by the destructor
};

}  // namespace LiveViewSimulator

#endif  // LIVEVIEW_SIMULATOR_SIM_STORE_H
