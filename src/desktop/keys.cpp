#include "desktop/keys.h"

#include <QKeyEvent>

namespace cu::desktop {
namespace {

struct Named {
  int key;
  std::int16_t code;
};
constexpr Named kNamed[] = {
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},     {Qt::Key_Backtab, 9}, {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},    {Qt::Key_Escape, 27}, {Qt::Key_Space, 32},  {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},    {Qt::Key_Home, 36},   {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},       {Qt::Key_Right, 39},  {Qt::Key_Down, 40},   {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
};

std::int16_t codeOf(int key) {
  for (const Named& named : kNamed) {
    if (named.key == key) return named.code;
  }
  if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z)) {
    return static_cast<std::int16_t>(key);
  }
  if (key >= Qt::Key_F1 && key <= Qt::Key_F16) return static_cast<std::int16_t>(112 + key - Qt::Key_F1);
  return 0;
}

}  // namespace

FormKey formKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers();
  const int shift = (held.testFlag(Qt::ShiftModifier) ? 1 : 0) +
                    (held.testFlag(Qt::ControlModifier) ? 2 : 0) + (held.testFlag(Qt::AltModifier) ? 4 : 0);
  return {codeOf(event.key()), static_cast<std::int16_t>(shift)};
}

}  // namespace cu::desktop
