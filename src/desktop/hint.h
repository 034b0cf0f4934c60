#pragma once

class QLineEdit;
class QString;

namespace cu::desktop {

// Says in an empty box what is to be typed there, as long as the box has room for all of it; otherwise in the
// tooltip of a box that has no other.
void setHint(QLineEdit& box, const QString& hint);

}  // namespace cu::desktop
