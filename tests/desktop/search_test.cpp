// Search lists: words in any order, accents and case ignored, the best rows first, what was found emphasised.

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include "desktop/matches.h"
#include "desktop/screen_support.h"
#include "desktop/search_list.h"
#include "desktop/text.h"
#include "support/fake_connection.h"

namespace cu::test {
namespace {

std::vector<std::string> codesOf(const desktop::SearchModel& model) {
  std::vector<std::string> codes;
  for (int row = 0; row < model.rowCount(); ++row) codes.push_back(model.code(row));
  return codes;
}

// A list of payees as the selector reads them.
struct SearchRows {
  explicit SearchRows(std::vector<std::vector<Value>> content) {
    connection.answerContaining("SELECT",
                                Table({"IDAnagrafica", "Codice", "Anagrafica"}, std::move(content)));
    rows.Open(connection, "SELECT");
  }
  FakeConnection connection;
  Recordset rows;
};

std::vector<std::vector<Value>> payees() {
  return {{whole(1), text("R1"), text("Amaro Rosa")},
          {whole(2), text("P2"), text("Calò Nicolò")},
          {whole(3), text("P3"), text("D'Angelo Mario")},
          {whole(4), text("ROSSI"), text("Ferri Anna")},
          {whole(5), text("P5"), text("Macrossi Carla")},
          {whole(6), text("P6"), text("Rossi Maria")},
          {whole(7), text("ROSSI2"), text("Verdi Giulia")},
          {whole(8), text("P8"), text("Bianchi & Rossini S.n.c.")}};
}

TEST(SearchList, TheBestRowsComeFirst) {
  SearchRows list(payees());
  desktop::SearchModel model(list.rows, {});
  model.narrow(QStringLiteral("rossi"));
  // The whole code, what begins so in the list's order, a word that begins so, a part of a word.
  EXPECT_EQ(codesOf(model), (std::vector<std::string>{"ROSSI", "P6", "ROSSI2", "P8", "P5"}));
}

TEST(SearchList, FindsSurnameAndNameInEitherOrderWithoutAccents) {
  SearchRows list(payees());
  desktop::SearchModel model(list.rows, {});
  for (const char* typed : {"nicolo calo", "CALÒ NIC", "  calo   nicolò ", "p2 calo"}) {
    model.narrow(QString::fromUtf8(typed));
    EXPECT_EQ(codesOf(model), (std::vector<std::string>{"P2"})) << typed;
  }
  model.narrow(QStringLiteral("angelo"));
  EXPECT_EQ(codesOf(model), (std::vector<std::string>{"P3"}));
  model.narrow(QStringLiteral("calo rossi"));
  EXPECT_TRUE(codesOf(model).empty());
}

TEST(SearchList, TypingOnNarrowsAndDeletingWidensAgain) {
  SearchRows list(payees());
  desktop::SearchModel model(list.rows, {});
  const std::vector<std::string> all = codesOf(model);
  model.narrow(QStringLiteral("ma"));
  const std::vector<std::string> some = codesOf(model);
  EXPECT_EQ(some, (std::vector<std::string>{"P5", "P3", "P6", "R1"}));
  model.narrow(QStringLiteral("ma ro"));
  EXPECT_EQ(codesOf(model), (std::vector<std::string>{"P6", "R1", "P5"}));
  model.narrow(QStringLiteral("ma"));
  EXPECT_EQ(codesOf(model), some);
  model.narrow({});
  EXPECT_EQ(codesOf(model), all);
}

TEST(SearchList, EmphasisesWhatWasTyped) {
  SearchRows list(payees());
  desktop::SearchModel model(list.rows, {});
  const auto parts = [&](const char* name) {
    QStringList cut;
    const QString whole = QString::fromUtf8(name);
    for (const desktop::Stretch& each : model.matched(whole)) cut += whole.mid(each.from, each.length);
    return cut.join(u'|').toStdString();
  };
  model.narrow(QStringLiteral("nico CALO"));
  EXPECT_EQ(parts("Calò Nicolò"), "Nico|Calò");
  EXPECT_EQ(parts("Rossi Maria"), "");
  model.narrow(QStringLiteral("ros"));
  EXPECT_EQ(parts("Macrossi Rosa"), "Ros") << "rather the beginning of a word";
  EXPECT_EQ(parts("Macrossi"), "ros");
}

TEST(SearchList, DrawsWhatWasTypedDifferently) {
  SearchRows list(payees());
  desktop::SearchDialog dialog(nullptr, QStringLiteral("Percipienti"), list.rows, {}, {});
  dialog.show();
  settle();
  QTableView& table = *dialog.table();
  table.clearSelection();
  const auto drawnAs = [&](const char* typed) {
    dialog.box()->setText(QString::fromUtf8(typed));
    settle();
    return table.viewport()->grab(table.visualRect(table.model()->index(0, 1))).toImage();
  };
  EXPECT_EQ(dialog.model().description(0), "Amaro Rosa");
  const QImage one = drawnAs("amaro");
  const QImage other = drawnAs("rosa amaro");
  EXPECT_EQ(dialog.model().description(0), "Amaro Rosa");
  EXPECT_NE(one, other);
}

TEST(SearchList, TwentyThousandRowsAreNarrowedWithinAKeystroke) {
  std::vector<std::vector<Value>> many;
  for (int i = 0; i < 20000; ++i) {
    many.push_back(
        {whole(i + 1), text("P" + std::to_string(i)), text("Cognomè " + std::to_string(i) + " Nicolò")});
  }
  SearchRows list(std::move(many));
  desktop::SearchModel model(list.rows, {});
  QElapsedTimer watch;
  watch.start();
  model.narrow(QStringLiteral("nicolo 19999"));
  EXPECT_EQ(codesOf(model), (std::vector<std::string>{"P19999"}));
  constexpr int kKeystroke = 500;  // milliseconds, of a machine that is busy
  EXPECT_LT(watch.elapsed(), kKeystroke);
}

TEST(Matches, AreFoundWithoutCaseAndAccentsAtTheirPlaces) {
  const QString name = QStringLiteral("Perché Calò?");
  const auto found = desktop::matches(name, QStringLiteral("e"));
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[1].from, 5);
  EXPECT_EQ(desktop::matches(QStringLiteral("a\tb"), QStringLiteral("a b")).size(), 1U);
  // A letter with its accent as a character of its own.
  EXPECT_EQ(desktop::matches(QStringLiteral("Perche\u0301 no"), QStringLiteral("PERCHÉ ")).at(0).length, 8);
  EXPECT_TRUE(desktop::matches(name, {}).empty());
}

}  // namespace
}  // namespace cu::test
