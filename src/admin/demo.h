#pragma once
// The subcommand `demo`: a demo desk, and the shop's day played on it through the real screens.
#include <QStringList>

// `palabras` are those behind the word "demo". Gives the exit status: 0, 1 when the desk can't be made or the day can't
// be played to its end, 2 when the call is wrong.
int ordenDemo(const QStringList& palabras);
