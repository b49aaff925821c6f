#include "admin/guion_lexico.h"

#include <QStringDecoder>

#include "platform/text/numero.h"

namespace {

struct FormaAccion {
  QStringView verbo;
  int minimo, maximo;  // number of arguments
  bool texto;          // the last of `maximo` is free text and may be empty where it is optional
  QStringView uso;
};

const FormaAccion kAcciones[] = {
    {u"reloj", 2, 2, false, u"reloj dd/mm/aaaa hh:mm:ss"},
    {u"pasa", 1, 1, false, u"pasa SEGUNDOS"},
    {u"inicia", 0, 0, false, u"inicia"},
    {u"termina", 0, 0, false, u"termina"},
    {u"espera", 1, 1, false, u"espera PANTALLA"},
    {u"escribe", 1, 2, true, u"escribe CONTROL TEXTO"},
    {u"tecla", 1, 2, false, u"tecla TECLAS [VECES]"},
    {u"ritmo", 1, 1, false, u"ritmo MILISEGUNDOS"},
    {u"escanea", 1, 1, true, u"escanea TEXTO"},
    {u"clic", 1, 1, false, u"clic CONTROL"},
    {u"dobleclic", 2, 2, false, u"dobleclic LISTA FILA"},
    {u"fila", 2, 2, false, u"fila LISTA FILA"},
    {u"elige", 2, 2, true, u"elige CONTROL TEXTO"},
    {u"celda", 3, 4, true, u"celda REJILLA FILA COLUMNA TEXTO"},
    {u"marca", 2, 2, false, u"marca CONTROL si/no"},
    {u"responde", 1, 2, true, u"responde BOTÓN [TEXTO]"},
    {u"lee", 1, 1, false, u"lee CONTROL"},
    {u"foco", 0, 0, false, u"foco"},
    {u"estado", 1, 1, false, u"estado CONTROL"},
    {u"captura", 1, 2, false, u"captura NOMBRE [PANTALLA]"},
    {u"revisa", 0, 0, false, u"revisa"},
    {u"cae", 1, 2, true, u"cae central | cae cliente | cae puerto NOMBRE"},
    {u"vuelve", 1, 2, true, u"vuelve central | vuelve cliente | vuelve puerto NOMBRE"},
    {u"falla", 1, 2, false, u"falla N | falla desde N | falla 0"},
    {u"mata", 2, 2, false, u"mata antes N | mata despues N | mata antes 0"},
};

bool esBlanco(QChar c) { return c == u' ' || c == u'\t'; }

// Takes the next word off `resto`, which is left without blanks in front.
QString tomarPalabra(QStringView& resto) {
  qsizetype fin = 0;
  while (fin < resto.size() && !esBlanco(resto[fin])) ++fin;
  QString palabra = resto.first(fin).toString();
  resto = resto.sliced(fin);
  while (!resto.isEmpty() && esBlanco(resto.front())) resto = resto.sliced(1);
  return palabra;
}

const FormaAccion& formaDe(const QString& verbo) {
  for (const FormaAccion& f : kAcciones)
    if (verbo == f.verbo) return f;
  throw ErrorGuion{QStringLiteral("no existe la acción «%1»").arg(verbo)};
}

}  // namespace

int Accion::entero(int n, int minimo) const {
  const QString texto = arg(n);
  const bool cifras = !texto.isEmpty() && texto.size() <= 9 &&
                      std::all_of(texto.begin(), texto.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
  const int valor = cifras ? static_cast<int>(AEntero(Val(texto))) : -1;
  if (valor < minimo) {
    throw ErrorGuion{QStringLiteral("«%1» no es un número entero desde %2").arg(texto).arg(minimo)};
  }
  return valor;
}

std::optional<Accion> leerAccion(const QString& linea, int numero) {
  QStringView resto = linea;
  while (!resto.isEmpty() && esBlanco(resto.front())) resto = resto.sliced(1);
  if (resto.isEmpty() || resto.front() == u'#') return {};

  Accion a;
  a.linea = numero;
  a.verbo = tomarPalabra(resto);
  const FormaAccion& forma = formaDe(a.verbo);
  while (!resto.isEmpty()) {
    const bool ultimo = a.argumentos.size() + 1 == forma.maximo;
    if (ultimo && forma.texto) {
      a.argumentos << resto.toString();
      break;
    }
    if (resto.front() == u'#') break;
    if (a.argumentos.size() == forma.maximo) {
      throw ErrorGuion{QStringLiteral("sobra «%1»; se escribe: %2").arg(resto, forma.uso)};
    }
    a.argumentos << tomarPalabra(resto);
  }
  if (a.argumentos.size() < forma.minimo) {
    throw ErrorGuion{QStringLiteral("faltan datos; se escribe: %1").arg(forma.uso)};
  }
  return a;
}

QStringList usosDeAcciones() {
  QStringList usos;
  for (const FormaAccion& f : kAcciones) usos << f.uso.toString();
  return usos;
}

QString enUnaLinea(QString texto) {
  const QString salto = QStringLiteral("\\n");
  return texto.replace(QStringLiteral("\r\n"), salto).replace(u'\r', salto).replace(u'\n', salto);
}

void FuenteGuion::alimentar(const QByteArray& bytes) {
  resto_ += bytes;
  if (alLlegar && resto_.contains('\n')) alLlegar();
}

void FuenteGuion::cerrar() {
  cerrada_ = true;
  if (alLlegar) alLlegar();
}

FuenteGuion::Estado FuenteGuion::tomar(QString& linea) {
  qsizetype fin = resto_.indexOf('\n');
  if (fin < 0) {
    if (!cerrada_) return Estado::Todavia;
    if (resto_.isEmpty()) return Estado::Fin;
    fin = resto_.size();
  }
  QByteArray bytes = resto_.first(fin);
  resto_.remove(0, fin + 1);
  ++numero_;
  if (bytes.endsWith('\r')) bytes.chop(1);
  if (numero_ == 1 && bytes.startsWith("\xEF\xBB\xBF")) bytes.remove(0, 3);
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  linea = utf8(bytes);
  if (utf8.hasError()) throw ErrorGuion{QStringLiteral("la línea no está en UTF-8")};
  return Estado::Hay;
}
