// The minimum work of a program with a window: the limit of the wizard's start.

#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QLabel label(QStringLiteral("Autocomposizione"));
  label.resize(1040, 700);
  label.show();
  return QApplication::exec();
}
