// The state of the lines that other tables determine: which certificates have modules.

#include <gmock/gmock.h>

#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <atomic>

#include "apps/comune/chiavi_righe.h"
#include "apps/comune/connessioni.h"
#include "data/recordset.h"
#include "desktop/foot.h"
#include "desktop/grid_view.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

using desktop::QtFrontEnd;

Screen::Before readingOf(
    std::function<RowKeysReading(const std::string&, const Profilo::Database&)> reading) {
  return [reading = std::move(reading)](QtFrontEnd& screen, const Profilo& profile) {
    screen.rowKeys = [reading, database = profile.database](const std::string& statement) {
      return reading(statement, database);
    };
  };
}

Screen::Before asInTheProgram() {
  return readingOf([](const std::string& statement, const Profilo::Database& database) {
    return chiaviRighe(database, statement);
  });
}

class WithModules : public ::testing::Test {
 protected:
  explicit WithModules(const Screen::Before& before = asInTheProgram())
      : screen(247, Profilo::MotoreStampa::Registro, before) {
    QSettings().clear();
    screen.toGrid("2016");
  }
  QToolButton& button() { return *screen.find<QToolButton>("stato:Con moduli"); }
  Grid& grid() { return screen.form().grdCompensi; }
  desktop::GridModel& model() {
    return static_cast<desktop::GridView&>(*screen.window().view(grid())).model();
  }
  bool shows(std::size_t lines) {
    return QTest::qWaitFor([&] {
      return button().isVisible() && button().text() == QStringLiteral("Con moduli %1").arg(lines);
    });
  }
  std::unique_ptr<Connection> connection() { return apriConnessione(screen.profile().database); }
  // By what the database has, in words of its own.
  std::size_t linesWithModules() {
    Recordset rows;
    rows.Open(
        *connection(),
        "SELECT IDAnagrafica FROM ContoIndividuale WHERE IDAzienda = 1 AND Anno = 2016 AND EXISTS (SELECT "
        "IDModuloXContoIndividuale FROM ModuloXContoIndividuale M WHERE M.IDAzienda = "
        "ContoIndividuale.IDAzienda AND M.Anno = ContoIndividuale.Anno AND M.IDAnagrafica = "
        "ContoIndividuale.IDAnagrafica AND M.IDCausalePagamento = ContoIndividuale.IDCausalePagamento)");
    return rows.RecordCount();
  }
  Screen screen;
};

TEST_F(WithModules, AreTheLinesOfWhichModulesExist) {
  const std::size_t lines = linesWithModules();
  ASSERT_GT(lines, 0U);
  ASSERT_LT(lines, grid().rowCount());
  ASSERT_TRUE(shows(lines)) << button().text().toStdString();
  button().click();
  EXPECT_EQ(static_cast<std::size_t>(model().rowCount()), lines);
  EXPECT_THAT(model().stateNames(0), ::testing::Contains(QStringLiteral("Con moduli")));
}

TEST_F(WithModules, AreReadAgainAfterTheEditor) {
  const std::size_t lines = linesWithModules();
  ASSERT_TRUE(shows(lines));
  connection()->Execute("DELETE FROM ModuloXContoIndividuale WHERE IDAzienda = 1 AND Anno = 2016");
  screen.whenModal([&](QWidget&) { screen.key(Qt::Key_Escape); });
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Return);
  EXPECT_TRUE(shows(0)) << button().text().toStdString();
}

TEST_F(WithModules, AreThoseOfTheYearThatIsLoaded) {
  ASSERT_TRUE(shows(linesWithModules()));
  button().click();
  screen.whenModal([](QWidget& modal) { pressButton(modal, "No"); });
  screen.click("cmdNav(2)");
  screen.toGrid("2015");
  ASSERT_TRUE(QTest::qWaitFor([&] { return grid().states[4].keys != nullptr && button().isVisible(); }));
  std::size_t marked = 0;
  for (const RowKey& key : *grid().states[4].keys) {
    for (std::size_t row = 1; row <= grid().rowCount(); ++row) {
      grid().rows()->MoveTo(row);
      if (grid().rows()->Get("IDAnagrafica").integer() == key.first &&
          grid().rows()->Get("IDCausalePagamento").integer() == key.second)
        ++marked;
    }
  }
  EXPECT_EQ(static_cast<std::size_t>(model().rowCount()), marked) << "the filter waited for the new keys";
}

// Before the screen, whose readings count in it.
struct Readings {
  std::atomic<int> ended = 0;
};

class ReadUnderTheEditor : protected Readings, public WithModules {
 protected:
  ReadUnderTheEditor()
      : WithModules(readingOf([this](const std::string& statement, const Profilo::Database& database) {
          return [this, read = chiaviRighe(database, statement)] {
            RowKeys keys = read();
            ++ended;
            return keys;
          };
        })) {}
};

// The editor of a second line is open when the reading that its step has asked for ends: the form has
// narrowed the rows to that line, and the view still has all of them, and the way to the third one.
TEST_F(ReadUnderTheEditor, TheRowsStayWhileTheEditorIsOverThem) {
  ASSERT_TRUE(QTest::qWaitFor([&] { return ended > 0; }));
  settle();
  const int lines = model().rowCount();
  ASSERT_GT(lines, 2);
  const int before = ended;
  screen.whenModal([&](QWidget&) { screen.key(Qt::Key_PageDown, Qt::ControlModifier); });
  screen.whenModal([&](QWidget&) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended > before; }));
    settle();
    EXPECT_EQ(model().rowCount(), lines);
    screen.key(Qt::Key_PageDown, Qt::ControlModifier);
  });
  screen.whenModal([&](QWidget&) { screen.key(Qt::Key_Escape); });
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Return);
  EXPECT_EQ(grid().row(), 3U);
  EXPECT_TRUE(shows(linesWithModules()));
}

class WithoutDatabase : public WithModules {
 protected:
  WithoutDatabase()
      : WithModules(readingOf([](const std::string&, const Profilo::Database&) {
          return []() -> RowKeys { throw Error(kErrorDeviceIo, "Il server non risponde."); };
        })) {}
};

TEST_F(WithoutDatabase, HaveNoFilterAndItIsSaid) {
  EXPECT_TRUE(QTest::qWaitFor([&] {
    return screen.window().foot()->words() ==
           QStringLiteral("Il filtro \"Con moduli\" non è disponibile: Il server non risponde.");
  })) << screen.window().foot()->words().toStdString();
  EXPECT_TRUE(button().isHidden());
}

class WithoutReading : public WithModules {
 protected:
  WithoutReading() : WithModules({}) {}
};

TEST_F(WithoutReading, HaveNoFilter) {
  QTest::qWait(100);
  EXPECT_TRUE(button().isHidden());
  EXPECT_EQ(screen.window().foot()->words(), QStringLiteral("Pronto"));
}

TEST(BackgroundReading, ASecondOneTakesThePlaceOfTheFirst) {
  desktop::BackgroundReading<int> reading;
  std::vector<int> read;
  reading.onRead = [&](int value) { read.push_back(value); };
  std::atomic<bool> go = false;
  reading.start([&go] {
    while (!go) QThread::msleep(1);
    return 1;
  });
  reading.start([] { return 2; });
  EXPECT_TRUE(QTest::qWaitFor([&] { return !reading.reading(); }));
  go = true;
  QThreadPool::globalInstance()->waitForDone();
  settle();
  EXPECT_EQ(read, std::vector<int>{2});
}

TEST(BackgroundReading, OfWhatIsDestroyedMeanwhileIsDropped) {
  std::atomic<bool> go = false;
  int read = 0;
  {
    desktop::BackgroundReading<int> reading;
    reading.onRead = [&](int) { ++read; };
    reading.start([&go] {
      while (!go) QThread::msleep(1);
      return 1;
    });
  }
  go = true;
  QThreadPool::globalInstance()->waitForDone();
  settle();
  EXPECT_EQ(read, 0);
}

}  // namespace
}  // namespace cu::test
