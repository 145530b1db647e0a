// The simulator's store: what it keeps survives a restart on the same file, a publish whose live
// view is no longer held removes that view's row, file databases run in WAL mode, and a path that
// cannot hold a database is refused.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "sim_store.h"
#include "temp_folder_test.h"

namespace LiveViewSimulator {
namespace {

class SimStoreTest : public LiveViewTest::TempFolderTest {
protected:
    std::string Path() const { return dir_ + "/sim.db"; }
};

std::string Describe(const PublishRow& row) {
    return std::to_string(row.seq) + "|" + std::to_string(row.atMillis) + "|" + row.bundle + "|" +
           std::to_string(row.uid) + "|" + std::to_string(row.liveViewId) + "|" + row.operation +
           "|" + row.request + "|" + std::to_string(row.code) + "|" + row.message + "|" + row.field;
}

std::vector<std::string> Describe(const std::vector<PublishRow>& rows) {
    std::vector<std::string> texts;
    for (const PublishRow& row : rows) {
        texts.push_back(Describe(row));
    }
    return texts;
}

std::vector<std::string> Describe(const std::vector<HeldRow>& rows) {
    std::vector<std::string> texts;
    for (const HeldRow& row : rows) {
        texts.push_back(row.bundle + "|" + std::to_string(row.uid) + "|" +
                        std::to_string(row.liveViewId) + "|" + (row.ended ? "ended" : "live") +
                        "|" + row.request);
    }
    return texts;
}

std::vector<std::string> Describe(const std::vector<SlotRow>& rows) {
    std::vector<std::string> texts;
    for (const SlotRow& row : rows) {
        texts.push_back(row.bundle + "|" + std::to_string(row.uid) + "|" +
                        (row.enabled ? "on" : "off"));
    }
    return texts;
}

PublishRow Publish(int64_t atMillis, int32_t id, const std::string& operation, int32_t code) {
    PublishRow row;
    row.atMillis = atMillis;
    row.bundle = "com.example.food";
    row.uid = 20010001;
    row.liveViewId = id;
    row.operation = operation;
    row.request = R"({"id":)" + std::to_string(id) + R"(,"text":"naïve \"quoted\""})";
    row.code = code;
    row.message = code == 0 ? "" : "bad parameter";
    row.field = code == 0 ? "" : "request.content.version";
    return row;
}

TEST_F(SimStoreTest, WhatIsKeptSurvivesCloseAndReopenAndSeqKeepsIncreasing) {
    std::string error;
    PublishRow first = Publish(1700000000000, 7, "create", 0);
    PublishRow refused = Publish(1700000000500, 8, "update", 0x4000000 + 2);
    {
        auto store = SimStore::Open(Path(), error);
        ASSERT_NE(store, nullptr) << error;
        const HeldRow held{"", 0, 0, false, R"({"id":7})"};
        ASSERT_TRUE(store->RecordPublish(first, &held, error)) << error;
        ASSERT_TRUE(store->RecordPublish(refused, nullptr, error)) << error;
        ASSERT_TRUE(store->SetSlot({"com.example.rides", 20010002, false}, error)) << error;
        ASSERT_TRUE(store->SetSlot({"com.example.food", 20010001, false}, error)) << error;
        ASSERT_TRUE(store->SetSlot({"com.example.food", 20010001, true}, error)) << error;
    }
    EXPECT_EQ(first.seq, 1);
    EXPECT_EQ(refused.seq, 2);

    auto store = SimStore::Open(Path(), error);
    ASSERT_NE(store, nullptr) << error;
    EXPECT_EQ(store->PublishCount(), 2);
    EXPECT_EQ(Describe(store->History(0)), Describe(std::vector<PublishRow>{refused, first}));
    EXPECT_EQ(Describe(store->History(1)), Describe(std::vector<PublishRow>{refused}));
    EXPECT_EQ(Describe(store->History(10, 1)), Describe(std::vector<PublishRow>{refused}));
    // The held row takes its key from the publish, not from the row handed in.
    EXPECT_EQ(Describe(store->Held()),
              (std::vector<std::string>{R"(com.example.food|20010001|7|live|{"id":7})"}));
    EXPECT_EQ(Describe(store->Slots()),
              (std::vector<std::string>{"com.example.food|20010001|on",
                                        "com.example.rides|20010002|off"}));

    PublishRow third = Publish(1700000001000, 7, "end", 0);
    ASSERT_TRUE(store->RecordPublish(third, nullptr, error)) << error;
    EXPECT_EQ(third.seq, 3);
}

TEST_F(SimStoreTest, PublishWithoutHeldViewDeletesOnlyThatViewsRow) {
    std::string error;
    auto store = SimStore::Open("", error);
    ASSERT_NE(store, nullptr) << error;
    ASSERT_TRUE(store->ReplaceHeld({{"com.example.food", 20010001, 7, false, "{}"},
                                    {"com.example.food", 20010001, 8, true, "{}"},
                                    {"com.example.food", 20010002, 7, false, "{}"}},
                                   error))
        << error;
    PublishRow end = Publish(1700000000000, 7, "end", 0);
    ASSERT_TRUE(store->RecordPublish(end, nullptr, error)) << error;
    EXPECT_EQ(Describe(store->Held()),
              (std::vector<std::string>{"com.example.food|20010001|8|ended|{}",
                                        "com.example.food|20010002|7|live|{}"}));

    ASSERT_TRUE(store->ReplaceHeld({{"com.example.rides", 1, 2, false, "{}"}}, error)) << error;
    EXPECT_EQ(Describe(store->Held()), (std::vector<std::string>{"com.example.rides|1|2|live|{}"}));
}

TEST_F(SimStoreTest, FileDatabaseRunsInWalMode) {
    std::string error;
    auto store = SimStore::Open(Path(), error);
    ASSERT_NE(store, nullptr) << error;

    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open_v2(Path().c_str(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    sqlite3_stmt* statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db, "PRAGMA journal_mode", -1, &statement, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_step(statement), SQLITE_ROW);
    EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)), "wal");
    sqlite3_finalize(statement);
    sqlite3_close(db);
}

TEST_F(SimStoreTest, DirectoryIsRefusedWithReason) {
    std::string error;
    EXPECT_EQ(SimStore::Open(dir_, error), nullptr);
    EXPECT_EQ(error, "cannot open the database \"" + dir_ + "\": unable to open database file");
}

}  // namespace
}  // namespace LiveViewSimulator
