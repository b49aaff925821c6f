#include "platform/io/senales.h"

#include <QtGlobal>
#include <csignal>

void FallasDeEscrituraComoErrores() {
#ifdef Q_OS_UNIX
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
#endif
}

void NombrarZona() {
#ifdef Q_OS_UNIX
  if (!qEnvironmentVariableIsSet("TZ")) qputenv("TZ", ":/etc/localtime");
#endif
}
