#include <gmock/gmock.h>

#include "fakes/table_file.h"
#include "program_fixture.h"

namespace sentrel {
namespace {

using testing::HasSubstr;

/// What lies before the last two numbers of an OID X.0.N, and the last one.
std::pair<QString, QString> EnterpriseAndNumber(const QString& trap) {
  const qsizetype number = trap.lastIndexOf('.');
  return {trap.left(trap.lastIndexOf('.', number - 1)), trap.mid(number + 1)};
}

/// Without any module, in version 2c with the maker's product and in version 1 as its agents send
/// it.
TEST_F(ProgramFixture, TheTrapsOfMakersHaveNames) {
  int rows = 1;
  for (const auto& row : RowsOf(TEST_DATA "/mib/maker_traps.txt")) {
    SCOPED_TRACE(row.at(0));
    QStringList words;
    for (const std::string& word : row) words << QString::fromStdString(word);
    const QStringList object = {words[5], "i", words[6]};
    Run(SNMPTRAP, QStringList{"-v2c", "-c", "public", Peer(), "", words[1], "1.3.6.1.6.3.1.1.4.3.0",
                              "o", words[3]} +
                      object);
    AwaitRows(++rows);
    const Table& table = program.Traps();
    EXPECT_EQ(table.Cell(1, 3), row.at(4));
    EXPECT_THAT(table.Cell(1, 4), HasSubstr("snmpTrapOID = " + row.at(2)));
    EXPECT_THAT(table.Cell(1, 4), HasSubstr(row.at(7)));

    if (!words[1].contains(".0.")) continue;  // one of those that version 1 knows by a number
    const auto [enterprise, number] = EnterpriseAndNumber(words[1]);
    Run(SNMPTRAP,
        QStringList{"-v1", "-c", "public", Peer(), enterprise, "127.0.0.1", "6", number, ""} +
            object);
    AwaitRows(++rows);
    EXPECT_THAT(table.Cell(1, 4), HasSubstr("snmpTrapOID = " + row.at(2)));
    EXPECT_THAT(table.Cell(1, 4), HasSubstr(row.at(7)));
    EXPECT_THAT(table.Cell(1, 3), testing::Not(testing::StartsWith("enterprises")));
  }
  EXPECT_GT(rows, 30);
}

}  // namespace
}  // namespace sentrel
