// Recorded runs of the driver, repeated with mouse and keyboard in the window: after each step every control
// of every open form agrees with its widget, and the same box waits for an answer.

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTimer>
#include <fstream>

#include "desktop/agreement_support.h"
#include "desktop/hand_support.h"

namespace cu::test {
namespace {

using nlohmann::json;

struct Line {
  int number;
  json content;
};

std::vector<Line> read(const std::string& run) {
  std::ifstream file(std::string(CU_SCENARI) + "/" + run + ".jsonl");
  std::vector<Line> lines;
  int number = 0;
  for (std::string text; std::getline(file, text);) {
    ++number;
    if (!text.empty()) lines.push_back({number, json::parse(text)});
  }
  return lines;
}

class Walk {
 public:
  Walk(Screen& screen, std::vector<Line> lines) : screen_(screen), hand_(screen), lines_(std::move(lines)) {}

  // Runs until the last line that can be performed; closes what remains open.
  void go() {
    QTimer::singleShot(kPause, qApp, [this] { step(); });
    QEventLoop loop;
    loop_ = &loop;
    loop.exec();
  }
  int steps() const { return steps_; }

 private:
  static constexpr int kPause = 5;

  // A step that opens a modal window returns only when the window has been closed: the next step is queued
  // before.
  void step() {
    if (screen_.frontEnd().busy()) {
      QTimer::singleShot(kPause, qApp, [this] { step(); });
      return;
    }
    check();
    while (at_ < lines_.size() && !lines_[at_].content.contains("send")) ++at_;
    if (at_ == lines_.size() || lines_[at_].content.contains("close") || !screen_.frontEnd().anyOpen()) {
      finish();
      return;
    }
    const Line& line = lines_[at_++];
    expected_ = line.content.value("expect", json::object());
    number_ = line.number;
    ++steps_;
    QTimer::singleShot(kPause, qApp, [this] { step(); });
    const bool allowed = expected_.value("ok", true);
    const int number = number_;
    EXPECT_EQ(hand_.perform(line.content["send"]), allowed) << "line " << number;
  }

  void check() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* const window = dynamic_cast<desktop::FormWindow*>(widget);
      if (window == nullptr || !window->live()) continue;
      EXPECT_EQ(disagreements(*window), "") << "line " << number_;
    }
    if (expected_.contains("windows")) {
      const bool open = !expected_["windows"].empty();
      EXPECT_EQ(screen_.frontEnd().anyOpen(), open) << "line " << number_;
      if (open) {
        EXPECT_EQ(screen_.top()->form().name(), expected_["windows"].back()) << "line " << number_;
      }
    }
    if (expected_.contains("modal")) checkModal(expected_["modal"]);
    if (expected_.contains("focus") && expected_["focus"].is_string()) {
      const Control* const focus = screen_.focus();
      EXPECT_EQ(screen_.top()->form().name() + "." + (focus == nullptr ? "" : focus->name()),
                expected_["focus"])
          << "line " << number_;
    }
  }

  void checkModal(const json& modal) {
    if (modal.is_null()) {
      EXPECT_EQ(Hand::waiting(), "") << "line " << number_;
      return;
    }
    if (modal.contains("kind")) {
      EXPECT_EQ(Hand::waiting(), modal["kind"]) << "line " << number_;
    }
    auto* const box = qobject_cast<QMessageBox*>(Hand::modal());
    if (box == nullptr) return;
    if (modal.contains("text") && modal["text"].is_string()) {
      EXPECT_EQ(box->text(), QString::fromStdString(modal["text"]).remove(u'\r')) << "line " << number_;
    }
    if (modal.contains("buttons")) {
      EXPECT_EQ(static_cast<std::size_t>(box->buttons().size()), modal["buttons"].size())
          << "line " << number_;
    }
  }

  void finish() {
    if (finished_) return;
    finished_ = true;
    // Cancels everything that still waits, innermost first.
    auto* const end = new QTimer(qApp);
    QObject::connect(end, &QTimer::timeout, qApp, [this, end] {
      if (QWidget* const modal = Hand::modal()) {
        modal->close();
        return;
      }
      end->deleteLater();
      loop_->quit();
    });
    end->start(kPause);
  }

  Screen& screen_;
  Hand hand_;
  std::vector<Line> lines_;
  std::size_t at_ = 0;
  int number_ = 0;
  int steps_ = 0;
  json expected_ = json::object();
  QEventLoop* loop_ = nullptr;
  bool finished_ = false;
};

struct RecordedRun {
  const char* name;
  std::int32_t mode;
  int atLeast;  // minimum number of steps
};

class Runs : public ::testing::TestWithParam<RecordedRun> {};

TEST_P(Runs, ModelAndWidgetsAgreeAfterEachStep) {
  Screen screen(GetParam().mode);
  Walk walk(screen, read(GetParam().name));
  walk.go();
  EXPECT_GE(walk.steps(), GetParam().atLeast);
}

INSTANTIATE_TEST_SUITE_P(
    Recorded, Runs,
    ::testing::Values(RecordedRun{"file_telematico", 247, 40}, RecordedRun{"certificazione", 247, 20},
                      RecordedRun{"conti_individuali", 246, 8}, RecordedRun{"menu_e_tasti", 247, 8},
                      RecordedRun{"stampa_conti", 246, 40}, RecordedRun{"stampa_certificazione", 247, 12}),
    [](const auto& of) { return std::string(of.param.name); });

}  // namespace
}  // namespace cu::test
