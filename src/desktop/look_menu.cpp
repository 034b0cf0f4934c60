#include "desktop/look_menu.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <functional>

#include "desktop/look.h"

namespace cu::desktop {
namespace {

struct LookChoice {
  const char* caption;
  int value;
};

constexpr LookChoice kColourChoices[] = {{"Colori del &sistema", static_cast<int>(look::Colours::Desktop)},
                                         {"Colori &chiari", static_cast<int>(look::Colours::Light)},
                                         {"Colori sc&uri", static_cast<int>(look::Colours::Dark)}};
constexpr LookChoice kLetterChoices[] = {{"Caratteri &normali", 100},
                                         {"Caratteri &grandi", 115},
                                         {"Caratteri &molto grandi", 130},
                                         {"Caratteri &enormi", 160}};

void addChoices(QMenu& menu, const auto& choices, const std::function<int()>& present,
                const std::function<void(int)>& choose) {
  auto* const group = new QActionGroup(&menu);
  for (const LookChoice& choice : choices) {
    QAction* const entry = group->addAction(menu.addAction(QString::fromUtf8(choice.caption)));
    entry->setCheckable(true);
    entry->setData(choice.value);
    QObject::connect(entry, &QAction::triggered, &menu, [choose, value = choice.value] {
      choose(value);
      look::remember();
    });
  }
  const auto check = [group, present] {
    for (QAction* const entry : group->actions()) entry->setChecked(entry->data().toInt() == present());
  };
  QObject::connect(&menu, &QMenu::aboutToShow, &menu, check);
  check();
}

}  // namespace

void fillLookMenu(QMenu& menu) {
  addChoices(
      menu, kColourChoices, [] { return static_cast<int>(look::colours()); },
      [](int value) { look::setColours(static_cast<look::Colours>(value)); });
  menu.addSeparator();
  addChoices(
      menu, kLetterChoices, [] { return look::letters(); }, [](int value) { look::setLetters(value); });
}

}  // namespace cu::desktop
