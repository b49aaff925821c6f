#include "admin/simula_papel.h"

#include <QFile>
#include <QStringList>

#include "platform/text/texto.h"

namespace {

QByteArray rollo(const QString& carpeta, const char* puerto) {
  QFile f(carpeta + QStringLiteral("/puertos/") + QLatin1String(puerto));
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

}  // namespace

std::vector<TicketEnPapel> TicketsEnPapel(const QString& carpeta) {
  const QByteArray titulo = "TK NRO: ", raya = "-------------------";
  std::vector<TicketEnPapel> r;
  for (const char* puerto : {"LPT1", "LPT2"}) {
    int rayas = 2;  // seen of this ticket: the lines stand between the two
    for (const QByteArray& l : rollo(carpeta, puerto).split('\n')) {
      const qsizetype i = l.indexOf(titulo);
      if (i >= 0) {
        const QList<QByteArray> partes = l.mid(i + titulo.size()).split(' ').value(0).split('-');
        r.push_back({QString::fromLatin1(partes.value(0)), partes.value(1).toLongLong(), 0});
        rayas = 0;
      } else if (rayas < 2 && l.startsWith(raya)) {
        ++rayas;
      } else if (rayas == 1) {
        r.back().lineas += qRound64(l.trimmed().split(' ').last().toDouble() * 100);
      }
    }
  }
  return r;
}

qint64 VendidoEnUltimoZ(const QString& carpeta) {
  const QString papel = DeUnByte(rollo(carpeta, "LPT1"));
  const qsizetype z = papel.lastIndexOf(QStringLiteral("Z  CHECK                             01"));
  if (z < 0) return -1;
  const QStringList r = papel.mid(z).remove(u'\r').split(u'\n');
  for (qsizetype i = 0; i + 1 < r.size(); ++i) {
    if (!r[i].startsWith(u"TOTAL ")) continue;
    QString s = r[i + 1].trimmed().section(u' ', -1);
    return qRound64(s.remove(u'*').remove(u',').toDouble() * 100);
  }
  return -1;
}
