#include "desktop/together_support.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QEventLoop>
#include <QMessageBox>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <sstream>
#include <utility>

#include "automation/describe.h"
#include "automation/driver.h"
#include "desktop/agreement_support.h"
#include "desktop/hand_support.h"
#include "reporting/pdf_reports.h"

namespace cu::test {
namespace {

using nlohmann::json;

// The first properties in which two trees of controls differ; "" when they are equal.
std::string difference(const json& window, const json& driver) {
  std::string all;
  for (const auto& [name, control] : window.items()) {
    if (!driver.contains(name)) return name + " is not there";
    for (const auto& [property, value] : control.items()) {
      if (driver[name].value(property, json()) == value) continue;
      all += "  " + name + "." + property + ": window " + value.dump() + ", driver " +
             driver[name].value(property, json()).dump() + "\n";
    }
  }
  return all;
}

}  // namespace

void Together::step(std::string what, std::function<void()> act, std::function<Commands()> commands) {
  adding_->push_back({Step::Kind::Whole, std::move(what), std::move(act), std::move(commands)});
}

void Together::part(std::function<void()> act, std::function<Commands()> commands) {
  adding_->push_back({Step::Kind::Part, {}, std::move(act), std::move(commands)});
}

void Together::then(std::function<void()> decide) {
  adding_->push_back({Step::Kind::Decision, {}, std::move(decide), {}});
}

void Together::run() {
  QTimer::singleShot(0, qApp, [this] { next(); });
  QEventLoop loop;
  loop_ = &loop;
  loop.exec();
  if (!::testing::Test::HasFailure()) compare();
}

// A step that opens a modal window returns only when the window has been closed: the next one is queued
// before. Otherwise the end of the step is waited for, and for a mnemonic the time during which its button is
// shown pressed.
void Together::next() {
  const auto buttons = screen_.top()->findChildren<QAbstractButton*>();
  const bool pressed = std::any_of(buttons.begin(), buttons.end(), [](auto* each) { return each->isDown(); });
  const bool acting = acting_ != 0 && QApplication::activeModalWidget() == modal_;
  // The modal window has been closed, and its event has not ended yet.
  const int level = QThread::currentThread()->loopLevel();
  if (level_ == 0) level_ = level;
  const bool returning = level > level_ && Hand::modal() == nullptr && screen_.top() == &screen_.window();
  if (screen_.frontEnd().busy() || pressed || acting || returning) {
    QTimer::singleShot(1, qApp, [this] { next(); });
    return;
  }
  if (const auto ended = std::exchange(running_, std::nullopt)) note(*ended);
  if (::testing::Test::HasFailure()) {
    giveUp();
    return;
  }
  if (waiting_.empty()) {
    loop_->quit();
    return;
  }
  running_ = std::move(waiting_.front());
  waiting_.pop_front();
  QTimer::singleShot(0, qApp, [this] { next(); });
  const auto act = running_->act;
  if (running_->kind != Step::Kind::Decision) {
    const int number = acting_ = ++acts_;
    modal_ = QApplication::activeModalWidget();
    act();
    if (acting_ == number) acting_ = 0;
    return;
  }
  std::deque<Step> added;
  adding_ = &added;
  act();
  adding_ = &waiting_;
  waiting_.insert(waiting_.begin(), added.begin(), added.end());
}

void Together::note(const Step& ended) {
  if (ended.kind == Step::Kind::Decision) return;
  for (json& command : ended.commands()) parts_.push_back(std::move(command));
  if (ended.kind == Step::Kind::Part) return;
  EXPECT_EQ(disagreements(*screen_.top()), "") << ended.what;
  done_.push_back({ended.what, std::exchange(parts_, {}), state()});
}

// Closes what is open, innermost first.
void Together::giveUp() {
  QWidget* const box = Hand::modal();
  if (box == nullptr && screen_.top() == &screen_.window()) {
    loop_->quit();
    return;
  }
  QTimer::singleShot(1, qApp, [this] { giveUp(); });
  if (box != nullptr) {
    box->close();
  } else {
    screen_.top()->form().unload();
  }
}

Together::State Together::state() const {
  json windows = json::array();
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    const auto* const window = dynamic_cast<desktop::FormWindow*>(widget);
    if (window != nullptr && window->live()) windows.push_back(window->form().name());
  }
  std::sort(windows.begin(), windows.end());
  const auto* const box = qobject_cast<QMessageBox*>(Hand::modal());
  const Control* const focus = front().focus();
  const json brief = {{"windows", windows},
                      {"box", box == nullptr ? json() : json(box->text().toStdString())},
                      {"focus", focus == nullptr ? json() : json(named(focus->name()))}};
  return {brief, front().name(), toLine(describeTree(front()))};
}

std::vector<std::string> Together::drive() const {
  std::string commands;
  for (const Done& done : done_) {
    for (const json& command : done.commands) commands += command.dump() + "\n";
    commands += json{{"do", "tree"}, {"of", done.state.front}}.dump() + "\n";
  }
  QTemporaryDir folder;
  Profilo profile = screen_.profile();
  profile.database.origine = Screen::freshDatabase(folder).toStdString();
  profile.impostazioni = folder.filePath(QStringLiteral("impostazioni.toml")).toStdString();
  std::istringstream in(commands);
  std::ostringstream out;
  {
    Driver driver(in, out);
    Impianto wizard(profile, driver, PdfReports::crea);
    driver.drive([&] { wizard.programma().main(); });
  }
  std::vector<std::string> answers;
  std::istringstream lines(out.str());
  for (std::string line; std::getline(lines, line);) answers.push_back(line);
  return answers;
}

void Together::compare() const {
  const std::vector<std::string> answers = drive();
  std::size_t at = 0;  // the answer of the start
  for (const Done& done : done_) {
    for (const json& command : done.commands) {
      ++at;
      ASSERT_LT(at, answers.size()) << done.what;
      const json answer = json::parse(answers[at]);
      EXPECT_TRUE(answer["ok"].get<bool>()) << done.what << ": " << command << answer["error"];
    }
    ++at;
    ASSERT_LT(at, answers.size()) << done.what;
    compare(done, answers[at]);
    // One failure would cause failures in everything that follows.
    if (::testing::Test::HasFailure()) return;
  }
}

void Together::compare(const Done& done, std::string answer) {
  // The description of the controls is long: it is parsed only where it differs.
  const std::size_t tree = answer.find(done.state.tree);
  if (tree != std::string::npos) answer.replace(tree, done.state.tree.size(), "null");
  const json read = json::parse(answer);
  ASSERT_TRUE(read["ok"].get<bool>()) << done.what << read["error"];
  if (tree == std::string::npos) {
    EXPECT_EQ(difference(json::parse(done.state.tree), read["result"]), "") << done.what;
  }
  json windows = read["windows"];
  std::sort(windows.begin(), windows.end());
  std::string text = read["modal"].is_null() ? "" : read["modal"].value("text", "");
  std::erase(text, '\r');
  const json brief = {
      {"windows", windows}, {"box", read["modal"].is_null() ? json() : json(text)}, {"focus", read["focus"]}};
  EXPECT_EQ(done.state.brief, brief) << done.what;
}

}  // namespace cu::test
