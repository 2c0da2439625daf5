// SPDX-License-Identifier: GPL-2.0-or-later
// Query texts that mean harm, with an owner's rights, and servers that nobody allowed.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "hosts/servers/connection.h"
#include "tests/cli/program.h"
#include "tests/servers/server.h"

namespace brelmon::servers::test {
namespace {

using cli::test::Brelmon, cli::test::Contains;

std::string StateOf(const std::string& server) {
  return Psql(server,
              "SELECT count(*), sum(\"MAG\") FROM victim; SELECT is_called FROM counter; "
              "SELECT count(*) FROM pg_class; SELECT setting FROM pg_settings WHERE name = "
              "'work_mem'; SELECT count(*) FROM pg_largeobject_metadata");
}

TEST(HostileQueries, ChangeNothingWithAnOwnersRights) {
  const std::vector<std::string> texts = {
      R"("MAG" > 1; DROP TABLE victim)",
      R"("MAG" > 1) ; DROP TABLE victim; --)",
      R"("MAG" > 1); COMMIT; DROP TABLE victim; SELECT (1 = 1)",
      R"(1 = 1) UNION SELECT harm()",
      R"(harm() = 1)",
      R"("harm"() = 1)",
      R"(public.harm() = 1)",
      R"("MAG" = (SELECT harm()))",
      R"("MAG" IN (SELECT id FROM victim WHERE harm() > 0))",
      R"(EXISTS (WITH gone AS (DELETE FROM victim RETURNING id) SELECT 1 FROM gone))",
      R"(abs('x'::text) = 1)",
      R"(abs("MAG"::text) = 1)",
      "'a' = E'\\' OR harm() = 1 OR ''' OR 1 = 1",
      "'a' = e'\\' OR harm() = 1 --'",
      "$$'$$ <> 'x' OR harm() = 1 OR '' = ''",
      "$a$'$a$ <> harm()::text OR '' = ''",
      "1$$'$$ = harm() OR '' = ''",
      "1 = 1 -- '\n OR harm() = 1 -- '",
      "1 = 1 /* /* */ ' */ OR harm() = 1 /* ' */",
      "U&'\\0027' = '' OR U&\"harm\"() = 1",
      "nextval('counter') > 0",
      "set_config('work_mem', '64kB', false) = ''",
      "set_config('transaction_read_only', 'off', false) = ''",
      "lo_creat(-1) > 0",
      "pg_sleep(100) IS NULL",
      "pg_read_file('/etc/passwd') > ''",
      "query_to_xml('DELETE FROM victim', true, true, '') IS NULL",
      "(SELECT 1 FROM victim FOR UPDATE LIMIT 1) = 1",
      "\"MAG\" > 1 INTO OUTFILE",
      "[MAG' OR harm() = 1 OR ''] = 1",
      "`MAG ' OR harm() = 1 OR '` = 1",
      "\"MAG\" OPERATOR(pg_catalog.=) harm()"};
  const TempFolder folder;
  WriteModule(folder, {TableOn("faulty", "victim")});
  std::string lines;
  for (const std::string& text : texts) {
    if (text.find('\n') != std::string::npos) continue;
    std::string quoted;
    for (const char unit : text) quoted += unit == '\'' ? "'\\''" : std::string(1, unit);
    lines += "query victim '" + quoted + "' --new --filter\n";
  }
  const std::string before = StateOf("faulty");
  const auto said = Brelmon({folder.Path()}, lines);
  EXPECT_EQ(said.status, 1);
  EXPECT_EQ(said.out, "") << "a text that was taken";
  std::size_t refused = 0;
  for (auto at = said.err.find("Query didn't work!"); at != std::string::npos;
       at = said.err.find("Query didn't work!", at + 1)) {
    ++refused;
  }
  EXPECT_EQ(refused, static_cast<std::size_t>(std::count(lines.begin(), lines.end(), '\n')))
      << said.err;
  // The same as filters of a module, whose layers go by their identifiers.
  std::vector<headless::LayerXml> layers;
  for (const std::string& text : texts) {
    layers.push_back(TableOn("faulty", "victim", {}, text));
    layers.back().id += std::to_string(layers.size());
  }
  const TempFolder other;
  WriteModule(other, layers);
  const auto opened = Brelmon({other.Path(), "contents"});
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_TRUE(Contains(opened.err, layers[i].id + ": not opened: its filter can't be used: "))
        << texts[i];
  }
  EXPECT_EQ(StateOf("faulty"), before);
}

/// Whoever has a right to write has none in our sessions, whatever comes through the reader.
TEST(HostileQueries, ReadOnlyTransactionsHoldByThemselves) {
  const std::string before = StateOf("faulty");
  Address address;
  address.Service = "brelmon_faulty";
  address.User = "owner";
  ::setenv("PGSERVICEFILE", BRELMON_SERVERS "/pg_service.conf", 1);
  for (const char* statement :
       {"DELETE FROM victim", "SELECT harm()", "SELECT nextval('counter')", "SELECT 1; SELECT 2",
        "SET TRANSACTION READ WRITE", "CREATE TABLE other (id int)"}) {
    Transaction server(address);
    EXPECT_NE(headless::NumberOf([&] { server.Ask(statement); }), 0) << statement;
  }
  EXPECT_EQ(StateOf("faulty"), before);
}

/// A listener would do: nobody listens, so that an attempt is told in other words than a refusal.
TEST(Servers, AreCalledWhereTheUserAllowsIt) {
  const TempFolder folder, settings;
  auto layer = TableOn("alone", "rows");
  layer.source = "host=127.0.0.1 port=1 dbname='x' user='u' password='S3cretWord' table=\"rows\"";
  WriteModule(folder, {layer});
  const std::string refused = "rows: not opened: the server 127.0.0.1 is not called";
  const std::string tried = "rows: not opened: connection to server at \"127.0.0.1\", port 1";
  ::setenv("XDG_CONFIG_HOME", settings.Path().c_str(), 1);
  EXPECT_TRUE(Contains(Brelmon({folder.Path(), "contents"}).err, refused));
  const auto other = Brelmon({"--server", "db.example", folder.Path(), "contents"});
  EXPECT_TRUE(Contains(other.err, refused));
  for (const auto& words : std::vector<std::vector<std::string>>{
           {"--server", "127.0.0.1", folder.Path(), "contents"},
           {folder.Path(), "contents", "--server", "127.0.0.1"}}) {
    const auto said = Brelmon(words);
    EXPECT_TRUE(Contains(said.err, tried)) << said.err;
  }
  settings.Write("brelmon/servers", "# of the department\n\n  127.0.0.1  # this one\n");
  const auto said = Brelmon({folder.Path()}, "contents\nfields rows\ncheck\nvalues rows MAG\n");
  EXPECT_TRUE(Contains(said.err, tried)) << said.err;
  EXPECT_FALSE(Contains(said.out + said.err, "S3cretWord"));
  ::unsetenv("XDG_CONFIG_HOME");
}

TEST(Servers, PasswordsAreToldToNobody) {
  const TempFolder folder;
  WriteModule(folder, {TableOn("faulty", "victim", "password='S3cretWord'"),
                       TableOn("faulty", "nothere", "password='S3cretWord'")});
  const TempFolder made;
  const auto said = Brelmon({folder.Path()},
                            "contents\nfields victim\ncheck\nvalues victim MAG\n"
                            "query victim '\"MAG\" >' --new\nstatistics victim MAG\n"
                            "summarize victim MAG --output " +
                                made.Path("s.dbf") + "\npublish " + made.Path("web") + "\n");
  EXPECT_TRUE(Contains(said.out, "victim")) << said.err;
  EXPECT_FALSE(Contains(said.out + said.err, "S3cretWord"));
  EXPECT_FALSE(Contains(BytesOf(made.Path("s.dbf")), "S3cretWord"));
  EXPECT_FALSE(Contains(BytesOf(made.Path("web/module.json")), "S3cretWord"));
}

}  // namespace
}  // namespace brelmon::servers::test
