// What must not happen in logic: see CMakeLists.txt beside it.
#include <QWidget>

QWidget* unWidget() { return new QWidget; }
