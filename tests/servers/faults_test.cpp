// SPDX-License-Identifier: GPL-2.0-or-later
// What goes wrong with a server while a module is open: one failure with its reason, and the next
// click works.
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <functional>

#include "platform/map.h"
#include "tests/servers/server.h"

extern char** environ;

namespace brelmon::servers::test {
namespace {

using headless::Module;

Ref<IQueryFilter> Where(const Text& clause, const Text& field = {}) {
  const auto filter = New<IQueryFilter>();
  filter->WhereClause = clause;
  filter->SubFields = field;
  return filter;
}

/// "53 reason" of what fails; empty where nothing does.
std::string FailureOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const Failure& failure) {
    return std::to_string(failure.Number) + " " + ToUtf8(failure.Description);
  }
  return {};
}

std::int32_t RowsOf(const Ref<IStandaloneTable>& table, const Text& field) {
  const auto cursor = table.As<ITable>()->Search(Where({}, field), true);
  std::int32_t rows = 0;
  while (cursor->NextRow()) ++rows;
  return rows;
}

/// Until a statement's answer is as due; the test ends for one that never comes.
void Until(const std::string& statement, const std::string& due) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (Psql("faulty", statement) != due) {
    ASSERT_LT(std::chrono::steady_clock::now(), end) << statement;
  }
}

TEST(Faults, ServerThatIsAwayIsToldAndComesBack) {
  Module module;
  module.Open({TableOn("faulty", "many")});
  const auto table = module.Table(u"many");
  EXPECT_EQ(RowsOf(table, u"MAG"), 200000);
  Cluster("down", "faulty");
  for (int i = 0; i < 2; ++i) {
    const std::string failure = FailureOf([&] { RowsOf(table, u"MAG"); });
    EXPECT_TRUE(failure.starts_with("53 ") && failure.find("failed: ") != std::string::npos)
        << failure;
  }
  Module other;
  other.Open({TableOn("faulty", "many")});
  const auto shut = other.Table(u"many");
  EXPECT_FALSE(shut->Valid());
  Cluster("up", "faulty");
  EXPECT_EQ(RowsOf(table, u"MAG"), 200000);
}

TEST(Faults, RestartInTheMiddleOfARunEndsThatRunAlone) {
  Module module;
  module.Open({TableOn("faulty", "many")});
  const auto table = module.Table(u"many");
  const auto cursor = table.As<ITable>()->Search({}, false);
  ASSERT_TRUE(cursor->NextRow());
  Cluster("kill", "faulty");
  Cluster("up", "faulty");
  const std::string failure = FailureOf([&] {
    while (cursor->NextRow()) {
    }
  });
  EXPECT_TRUE(failure.starts_with("57 The connection to the database of service brelmon_faulty"))
      << failure;
  EXPECT_EQ(RowsOf(table, u"MAG"), 200000);
}

TEST(Faults, RightsThatAreMissingOrTakenAway) {
  Module module;
  module.Open({TableOn("faulty", "many", "user='student'"),
               TableOn("faulty", "private", "user='student'")});
  const auto table = module.Table(u"many"), shut = module.Table(u"private");
  EXPECT_FALSE(shut->Valid());
  EXPECT_EQ(FailureOf([&] { shut.As<ITable>()->RowCount({}); }),
            "53 The data can't be reached: the database of service brelmon_faulty: permission "
            "denied for the table \"public\".\"private\"");
  EXPECT_EQ(table.As<ITable>()->RowCount(Where(u"id < 11")), 10);
  Psql("faulty", "REVOKE SELECT ON many FROM student");
  EXPECT_EQ(FailureOf([&] { RowsOf(table, u"MAG"); }),
            "70 Permission denied for table many (the database of service brelmon_faulty).");
  Psql("faulty", "GRANT SELECT ON many TO student");
  EXPECT_EQ(RowsOf(table, u"MAG"), 200000);
}

TEST(Faults, StatementThatTakesTooLong) {
  Module module;
  module.Open({TableOn("faulty", "slow", "user='hasty' key='id'")});
  const auto table = module.Table(u"slow").As<ITable>();
  EXPECT_EQ(FailureOf([&] { table->RowCount({}); }),
            "57 Reading the database of service brelmon_faulty broke off: canceling statement due "
            "to statement timeout.");
  EXPECT_EQ(table->RowCount(Where(u"id = 1")), 1);
}

TEST(Faults, ColumnThatGoesWhileItsTableIsOpen) {
  Psql("faulty", "DROP TABLE IF EXISTS changing; CREATE TABLE changing AS SELECT * FROM rows");
  Module module;
  module.Open({TableOn("faulty", "changing")});
  const auto table = module.Table(u"changing");
  EXPECT_EQ(RowsOf(table, u"VAL"), 8);
  Psql("faulty", "ALTER TABLE changing DROP COLUMN \"VAL\"");
  EXPECT_EQ(FailureOf([&] { RowsOf(table, u"VAL"); }),
            "57 Reading the database of service brelmon_faulty broke off: column \"VAL\" does not "
            "exist.");
  // A query that names it is one that the source can't parse.
  EXPECT_EQ(headless::NumberOf([&] { table.As<ITable>()->RowCount(Where(u"\"VAL\" > 1")); }),
            failure::kRefused);
  EXPECT_EQ(RowsOf(table, u"CNT"), 8);
}

TEST(Faults, ConnectionsThatAreAllTaken) {
  // The one connection that this user may have.
  Module module;
  module.Open(
      {TableOn("faulty", "many", "user='single'"), TableOn("faulty", "rows", "user='single'")});
  const auto rows = module.Table(u"rows").As<ITable>();
  auto cursor = module.Table(u"many").As<ITable>()->Search({}, true);
  ASSERT_TRUE(cursor->NextRow());
  const std::string failure = FailureOf([&] { rows->RowCount(Where(u"id < 5")); });
  EXPECT_TRUE(failure.starts_with("53 ")) << failure;
  EXPECT_NE(failure.find("too many connections for role \"single\""), failure.npos) << failure;
  // The rows that are half read go on, and who is done makes room.
  EXPECT_TRUE(cursor->NextRow());
  cursor = {};
  EXPECT_EQ(rows->RowCount(Where(u"id < 5")), 4);
}

TEST(Faults, InterruptEndsTheQueryOnTheServer) {
  const TempFolder folder;
  WriteModule(folder, {TableOn("faulty", "slow", "key='id'")});
  const std::string path = folder.Path("map.qgs");
  const std::vector<const char*> words{BRELMON_PROGRAM, path.c_str(), "contents", nullptr};
  pid_t child = 0;
  ASSERT_EQ(::posix_spawn(&child, BRELMON_PROGRAM, nullptr, nullptr,
                          const_cast<char* const*>(words.data()), environ),
            0);
  const std::string busy =
      "SELECT count(*) > 0 FROM pg_stat_activity WHERE application_name = 'brelmon' AND state = "
      "'active' AND query LIKE '%slow%'";
  Until(busy, "t");
  ::kill(child, SIGINT);
  int state = 0;
  ::waitpid(child, &state, 0);
  EXPECT_TRUE(WIFSIGNALED(state) && WTERMSIG(state) == SIGINT);
  Until(busy, "f");
}

}  // namespace
}  // namespace brelmon::servers::test
