#include "platform/ado/Connection.h"
#include "platform/ado/TransactionErrors.h"
#include "tests/support/core/Raised.h"
#include "tests/support/core/ScriptedProvider.h"

#include <gtest/gtest.h>

namespace {

/// A server whose commit fails and takes the transaction along, and one that cannot begin any.
class FullDisk : public tests::ScriptedProvider {
  public:
    bool begins = true;

    void begin() override {
        if (!begins)
            throw base::RunTimeError(1222);
        ScriptedProvider::begin();
    }
    void commit() override {
        ScriptedProvider::commit();
        throw base::RunTimeError(50000);
    }
    void rollback() override {
        if (!inTransaction())
            throw ado::nothingToRollBack();
        ScriptedProvider::rollback();
    }
};

class Transaction : public testing::Test {
  protected:
    Transaction() {
        auto provider = std::make_unique<FullDisk>();
        server = provider.get();
        connection.Open(std::move(provider), "Full");
    }
    int failing(void (ado::Connection::*step)()) {
        return tests::raised([&] { (connection.*step)(); }).number();
    }
    ado::Connection connection;
    FullDisk* server = nullptr;
};

TEST_F(Transaction, ACommitThatFailedCanBeRolledBackOnce) {
    connection.BeginTrans();
    EXPECT_EQ(failing(&ado::Connection::CommitTrans), 50000);
    connection.RollbackTrans();
    EXPECT_EQ(failing(&ado::Connection::RollbackTrans), 3903);
}

TEST_F(Transaction, ABeginThatFailedLeavesNothingToRollBack) {
    connection.BeginTrans();
    EXPECT_EQ(failing(&ado::Connection::CommitTrans), 50000);
    server->begins = false;
    EXPECT_EQ(failing(&ado::Connection::BeginTrans), 1222);
    EXPECT_EQ(failing(&ado::Connection::RollbackTrans), 3903);
}

} // namespace
