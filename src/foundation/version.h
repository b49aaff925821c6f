#pragma once
// The program's version, told once: in CMakeLists.txt.
#include <QString>

// "major.minor.revision", as papers, windows and `--version` print it.
QString Version();
