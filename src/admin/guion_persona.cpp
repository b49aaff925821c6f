#include "admin/guion_persona.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "admin/guion_lexico.h"

void EscritorGuion::linea(const QString& texto) {
  const QByteArray bytes = texto.toUtf8() + '\n';
  std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
  std::fflush(stdout);
}

void EscritorGuion::ok() {
  if (detalle_ == Detalle::Todo) linea(QStringLiteral("ok"));
}

void terminarGuion(int estado) {
  std::fflush(stdout);
  std::fflush(stderr);
  std::_Exit(estado);
}

void SalidaGuion::terminar(int estado) {
  escritor_.linea(QStringLiteral("fin %1").arg(estado));
  terminarGuion(estado);
}

QString PersonaDeGuion::nombre(Boton b) {
  switch (b) {
    case Boton::Si: return QStringLiteral("Sí");
    case Boton::No: return QStringLiteral("No");
    case Boton::Aceptar: return QStringLiteral("Aceptar");
    case Boton::Cancelar: break;
  }
  return QStringLiteral("Cancelar");
}

bool PersonaDeGuion::encolar(const QString& boton, const std::optional<QString>& texto) {
  const bool sinAcento = boton.compare(QStringLiteral("si"), Qt::CaseInsensitive) == 0;
  for (const Boton b : {Boton::Si, Boton::No, Boton::Aceptar, Boton::Cancelar}) {
    if (boton.compare(nombre(b), Qt::CaseInsensitive) != 0 && !(b == Boton::Si && sinAcento)) continue;
    cola_.push_back({b, texto});
    return true;
  }
  return false;
}

PersonaDeGuion::Respuesta PersonaDeGuion::caja(const QString& texto, const QString& titulo,
                                               std::initializer_list<Boton> botones) {
  if (callada_) return {botones.size() == 1 ? Boton::Aceptar : Boton::Cancelar, {}};
  Respuesta r{*botones.begin(), {}};
  if (!cola_.empty() && std::find(botones.begin(), botones.end(), cola_.front().boton) != botones.end()) {
    r = cola_.front();
    cola_.pop_front();
  }
  escritor_.linea(QStringLiteral("caja|%1|%2|%3").arg(enUnaLinea(titulo), enUnaLinea(texto), nombre(r.boton)));
  return r;
}

void PersonaDeGuion::mostrar(const QString& texto, const QString& titulo, Icono) {
  caja(texto, titulo, {Boton::Aceptar});
}

bool PersonaDeGuion::preguntar(const QString& texto, const QString& titulo, bool siPorDefecto) {
  const Respuesta r =
      siPorDefecto ? caja(texto, titulo, {Boton::Si, Boton::No}) : caja(texto, titulo, {Boton::No, Boton::Si});
  return r.boton == Boton::Si;
}

std::optional<QString> PersonaDeGuion::pedir(const QString& texto, const QString& titulo, const QString& porDefecto) {
  const Respuesta r = caja(texto, titulo, {Boton::Aceptar, Boton::Cancelar});
  if (r.boton == Boton::Cancelar) return {};
  return r.texto.value_or(porDefecto);
}
