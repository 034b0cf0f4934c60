// Search lists: words in any order, accents and case ignored, the best rows first, what was found emphasised.

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QThreadPool>
#include <atomic>
#include <future>
#include <utility>

#include "base/error.h"
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

// First names and fiscal codes of the payees, as they are read apart.
FurtherColumns::Texts firstNames() {
  return {{1, {"Rossella", "MRARSL70A41F205X"}},
          {2, {"", "CLANCL80B02F205Y"}},
          {5, {"Rossi Amara", "MCRCRL60C43F205Z"}},
          {6, {"Ivana", "RSSVNI85D44F205W"}},
          {8, {"", "01234567890"}}};
}

FurtherColumns furtherColumns(std::function<FurtherColumns::Texts()> read = firstNames) {
  return {{"Nome", "Codice fiscale"}, std::move(read)};
}

// The list of a dialog whose further columns have been read.
struct FurtherList : SearchRows {
  FurtherList() : SearchRows(payees()) {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !dialog.words().contains(QStringLiteral("lettura")); }));
  }
  std::vector<std::string> found(const char* typed) {
    dialog.box()->setText(QString::fromUtf8(typed));
    return codesOf(dialog.model());
  }
  desktop::SearchDialog dialog{nullptr, QStringLiteral("Percipienti"),
                               rows,    {QStringLiteral("Codice"), QStringLiteral("Percipiente")},
                               {},      furtherColumns()};
};

TEST(SearchList, FindsByWhatItsOwnRowsDoNotHave) {
  FurtherList list;
  EXPECT_EQ(list.found("ivana"), (std::vector<std::string>{"P6"}));
  EXPECT_EQ(list.found("RSSvni"), (std::vector<std::string>{"P6"}));
  EXPECT_EQ(list.found("01234567890"), (std::vector<std::string>{"P8"}));
  // Words of several columns, in any order.
  EXPECT_EQ(list.found("ivana rossi"), (std::vector<std::string>{"P6"}));
  EXPECT_EQ(list.found("macrossi mcrcrl amara"), (std::vector<std::string>{"P5"}));
  // A row without further texts is found by its own.
  EXPECT_EQ(list.found("d'angelo"), (std::vector<std::string>{"P3"}));
}

TEST(SearchList, CodesAndDescriptionsComeBeforeFurtherColumns) {
  FurtherList list;
  EXPECT_EQ(list.found("ross"), (std::vector<std::string>{"ROSSI", "P6", "ROSSI2", "R1", "P5", "P8"}))
      << "code, description, further column, word, part of a word";
  // Surname and first name are one name, in both orders.
  EXPECT_EQ(list.found("macrossi carla rossi amara"), (std::vector<std::string>{"P5"}));
  EXPECT_EQ(list.found("rossi am"), (std::vector<std::string>{"P5"}));
}

TEST(SearchList, ShowsFurtherColumnsBesideItsRows) {
  FurtherList list;
  list.found("ivana");
  const QAbstractItemModel& model = *list.dialog.table()->model();
  ASSERT_EQ(model.columnCount(), 4);
  EXPECT_EQ(model.index(0, 2).data().toString(), QStringLiteral("Ivana"));
  EXPECT_EQ(model.index(0, 3).data().toString(), QStringLiteral("RSSVNI85D44F205W"));
  EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Percipiente"));
  EXPECT_EQ(model.headerData(3, Qt::Horizontal).toString(), QStringLiteral("Codice fiscale"));
}

TEST(SearchList, CanBeUsedWhileFurtherColumnsAreRead) {
  SearchRows list(payees());
  std::promise<void> mayRead;
  desktop::SearchDialog dialog(nullptr, QStringLiteral("Percipienti"), list.rows,
                               {QStringLiteral("Codice"), QStringLiteral("Percipiente")}, {},
                               furtherColumns([may = mayRead.get_future().share()] {
                                 may.wait();
                                 return firstNames();
                               }));
  EXPECT_EQ(dialog.words(), QStringLiteral("8 di 8; lettura di nome e codice fiscale in corso…"));
  dialog.box()->setText(QStringLiteral("an"));
  EXPECT_EQ(codesOf(dialog.model()), (std::vector<std::string>{"P3", "ROSSI", "P8"}));
  dialog.table()->selectRow(2);
  mayRead.set_value();
  ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.words() == QStringLiteral("5 di 8"); }));
  EXPECT_EQ(codesOf(dialog.model()), (std::vector<std::string>{"P3", "ROSSI", "P2", "P6", "P8"}));
  EXPECT_EQ(dialog.table()->currentIndex().row(), 4) << "the row where the user is stays the current one";
}

TEST(SearchList, MayBeClosedWhileFurtherColumnsAreRead) {
  std::promise<void> mayRead;
  std::atomic<bool> read = false;
  {
    SearchRows list(payees());
    const desktop::SearchDialog dialog(nullptr, QStringLiteral("Percipienti"), list.rows, {}, {},
                                       furtherColumns([&read, may = mayRead.get_future().share()] {
                                         may.wait();
                                         read = true;
                                         return firstNames();
                                       }));
  }
  mayRead.set_value();
  QThreadPool::globalInstance()->waitForDone();
  settle();
  EXPECT_TRUE(read);
}

TEST(SearchList, ReportsFurtherColumnsThatCannotBeRead) {
  SearchRows list(payees());
  desktop::SearchDialog dialog(nullptr, QStringLiteral("Percipienti"), list.rows, {}, {},
                               furtherColumns([]() -> FurtherColumns::Texts {
                                 throw Error(kErrorObjectNotSet, "Il server non risponde.");
                               }));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !dialog.words().contains(QStringLiteral("lettura")); }));
  EXPECT_EQ(dialog.words(),
            QStringLiteral("8 di 8; qui non si cerca per nome e codice fiscale: Il server non risponde."));
  dialog.box()->setText(QStringLiteral("rossi maria"));
  EXPECT_EQ(codesOf(dialog.model()), (std::vector<std::string>{"P6"}));
}

TEST(SearchList, SaysInWordsThatNothingWasFound) {
  SearchRows list(payees());
  desktop::SearchDialog dialog(nullptr, QStringLiteral("Percipienti"), list.rows, {}, {});
  EXPECT_EQ(dialog.words(), QStringLiteral("8 di 8"));
  dialog.box()->setText(QStringLiteral("zzz"));
  EXPECT_EQ(dialog.words(), QStringLiteral("Nessuna riga contiene «zzz»"));
  EXPECT_EQ(dialog.box()->accessibleDescription(), dialog.words());
  dialog.box()->setText(QStringLiteral("rossi zzz"));
  EXPECT_EQ(dialog.words(), QStringLiteral("Nessuna riga contiene tutte queste parole"));
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
  desktop::FurtherRows further;
  for (int i = 0; i < 20000; ++i)
    further[i + 1] = {{QStringLiteral("Nome")}, {QStringLiteral("nome %1").arg(i)}};
  model.addFurther(std::move(further));
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
