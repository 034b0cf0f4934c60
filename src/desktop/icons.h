#pragma once

#include <QIcon>
#include <QPixmap>

namespace cu::desktop {

// The program's own pictures, of data/desktop.
enum class Picture {
  Program,
  Information,
  Warning,
  Error,
  Question,
  // States of a row of a grid; their shapes differ, not only their colours.
  Modified,
  NotChosen,
  ProtocolMissing,
  Modules,
};

// In every size that the toolkit asks for, sharp on every screen.
QIcon iconOf(Picture picture);
QPixmap pixmapOf(Picture picture, int side, double ratio = 1);

}  // namespace cu::desktop
