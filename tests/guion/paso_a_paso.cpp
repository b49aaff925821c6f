#include "paso_a_paso.h"

#include <gtest/gtest.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <map>
#include <memory>

#include "obra.h"
#include "servidores.h"
#include "store/tablas.h"

namespace {

constexpr int kEspera_ms = 60'000;

// A call of tarvopos-admin that is spoken to line by line.
class Dialogo {
 public:
  explicit Dialogo(const QStringList& palabras) {
    p_.setProcessEnvironment(entornoSinPantalla());
    p_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    p_.start(programaAdmin(), palabras);
  }
  ~Dialogo() {
    p_.closeWriteChannel();
    p_.waitForFinished(kEspera_ms);
  }

  void decir(const QString& linea) { p_.write(linea.toUtf8() + '\n'); }
  // The next line without its end; Null when the program has ended or says nothing for a minute.
  QString oir() {
    while (!p_.canReadLine()) {
      if (!p_.waitForReadyRead(kEspera_ms) && !p_.canReadLine()) return {};
    }
    QString linea = QString::fromUtf8(p_.readLine());
    linea.chop(1);
    return linea;
  }
  QString acabar() {
    p_.closeWriteChannel();
    p_.waitForFinished(kEspera_ms);
    return QString::fromUtf8(p_.readAllStandardOutput()) + QStringLiteral("[estado %1]\n").arg(p_.exitCode());
  }

 private:
  QProcess p_;
};

// A stored password is another text each time.
QString enTexto(const QJsonValue& v) {
  if (v.toString().startsWith(u"$argon2id$")) return QStringLiteral("\"(cifrada)\"");
  const QString s = QString::fromUtf8(QJsonDocument(QJsonArray{v}).toJson(QJsonDocument::Compact));
  return s.mid(1, s.size() - 2);
}

struct FilaVista {
  QString clave;  // the first column, and which of the rows that have the same
  QJsonArray valores;
};

struct TablaVista {
  QJsonArray columnas;
  std::vector<FilaVista> filas;

  QString columna(qsizetype i) const { return columnas[i].toString() + u'='; }
  const FilaVista* buscar(const QString& clave) const {
    for (const auto& f : filas) {
      if (f.clave == clave) return &f;
    }
    return nullptr;
  }
};

using Foto = std::map<QString, TablaVista>;

// A console on one of the three databases.
class Base {
 public:
  Base(const PuestoDeObra& p, const QString& base)
      : prefijo_(base == u"local" ? QString() : base + u':'),
        consola_({QStringLiteral("sql"), QStringLiteral("--puesto"), p.ruta(), QStringLiteral("--base"), base}) {
    const QStringList hechas = base == u"central"   ? tablasDelCentral()
                               : base == u"cliente" ? tablasDelCliente()
                                                    : tablasDelPuesto();
    for (const QString& s : hechas) {
      if (s.startsWith(u"CREATE TABLE ")) tablas_ << s.section(u' ', 2, 2);
    }
    tablas_.sort();
    EXPECT_GT(tablas_.size(), 5) << qUtf8Printable(base);
  }

  void retratar(Foto& foto) {
    for (const QString& tabla : tablas_) {
      TablaVista& t = foto[prefijo_ + tabla];
      std::map<QString, int> iguales;
      for (const QJsonValue& fila : filas(QStringLiteral("SELECT * FROM ") + tabla, &t.columnas)) {
        const QString primera = enTexto(fila[0]);
        t.filas.push_back({primera + u'#' + QString::number(++iguales[primera]), fila.toArray()});
      }
    }
  }

 private:
  QJsonArray filas(const QString& sql, QJsonArray* columnas = nullptr) {
    consola_.decir(sql);
    const QString linea = consola_.oir();
    const QJsonObject r = QJsonDocument::fromJson(linea.toUtf8()).object();
    EXPECT_TRUE(r.contains(u"filas")) << qUtf8Printable(sql + u' ' + linea);
    if (columnas) *columnas = r[u"columnas"].toArray();
    return r[u"filas"].toArray();
  }

  QString prefijo_;
  Dialogo consola_;
  QStringList tablas_;
};

QString diferencias(const Foto& antes, const Foto& despues) {
  QString s;
  for (const auto& [nombre, t] : despues) {
    const TablaVista& vieja = antes.at(nombre);
    const auto renglon = [&](QChar marca, const QStringList& celdas) {
      s += marca + nombre + u' ' + celdas.join(u' ') + u'\n';
    };
    for (const auto& f : vieja.filas) {
      if (!t.buscar(f.clave)) renglon(u'-', {t.columna(0) + enTexto(f.valores[0])});
    }
    for (const auto& f : t.filas) {
      const FilaVista* vista = vieja.buscar(f.clave);
      QStringList celdas;
      for (qsizetype i = 0; i < f.valores.size(); ++i) {
        const bool cambia = vista ? f.valores[i] != vista->valores[i] : !f.valores[i].isNull();
        if (cambia) celdas << t.columna(i) + enTexto(f.valores[i]);
      }
      if (!vista) renglon(u'+', celdas);
      else if (!celdas.isEmpty()) renglon(u'~', QStringList{t.columna(0) + enTexto(f.valores[0])} + celdas);
    }
  }
  return s;
}

}  // namespace

DichoYHecho TocarPasoAPaso(const PuestoDeObra& p, const QString& guion) {
  Base bases[] = {{p, QStringLiteral("central")}, {p, QStringLiteral("cliente")}, {p, QStringLiteral("local")}};
  Dialogo obra({QStringLiteral("guion"), QStringLiteral("-"), QStringLiteral("--puesto"), p.ruta(),
                QStringLiteral("--salida"), p.ruta()});
  DichoYHecho r;
  Foto antes;
  for (Base& b : bases) b.retratar(antes);
  const auto cerrarPaso = [&] {
    Foto despues;
    for (Base& b : bases) b.retratar(despues);
    if (!r.hecho.isEmpty()) r.hecho += diferencias(antes, despues);
    antes = despues;
  };
  for (const QString& linea : leerTexto(guion).split(u'\n')) {
    if (linea.startsWith(u"## ")) {
      cerrarPaso();
      r.hecho += (r.hecho.isEmpty() ? QString() : QStringLiteral("\n")) + linea + u'\n';
    }
    if (linea.trimmed().isEmpty() || linea.startsWith(u'#')) continue;
    obra.decir(linea);
    for (QString dicha = obra.oir(); dicha != u"ok"; dicha = obra.oir()) {
      if (dicha.isNull()) {
        r.dicho += obra.acabar();
        return r;
      }
      r.dicho += dicha + u'\n';
    }
  }
  cerrarPaso();
  r.dicho += obra.acabar();
  return r;
}
