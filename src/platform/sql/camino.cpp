#include "platform/sql/camino.h"

namespace {

ErrorBD deSentencia(const QString& palabras) { return {kErrorSentencia, 1, palabras}; }

// What would run nothing, or lose the statement behind a ";".
std::optional<ErrorBD> revisar(const std::vector<Token>& tokens) {
  bool vacia = true;
  for (size_t i = 0; i + 1 < tokens.size(); ++i) {
    if (!tokens[i].op(u";")) vacia = false;
    else if (!tokens[i + 1].op(u";") && tokens[i + 1].tipo != TipoToken::Fin)
      return deSentencia(QStringLiteral("Solo se puede ejecutar una sentencia a la vez."));
  }
  if (vacia) return deSentencia(QStringLiteral("La sentencia está vacía."));
  return {};
}

}  // namespace

std::optional<ErrorBD> Camino::reconocer(SentenciaLeida& s) const {
  for (const Token& t : s.tokens) {
    if (!t.abierto) continue;
    return deSentencia(QStringLiteral("La sentencia tiene un %1 sin fin.")
                           .arg(t.tipo == TipoToken::Fin     ? QStringLiteral("comentario")
                                : t.tipo == TipoToken::Texto ? QStringLiteral("texto")
                                                             : QStringLiteral("nombre")));
  }
  s.forma = ClaveDeForma(s.sql, s.tokens, {});
  return {};
}

std::shared_ptr<const FormaEscrita> Camino::escribir(const SentenciaLeida& s, int esquema, const Catalogo& catalogo,
                                                     std::optional<ErrorBD>& error) {
  if ((error = revisar(s.tokens))) return {};
  auto* memoria = memoria_ && esquema >= 0 ? &memoria_->alDia(esquema) : nullptr;
  std::shared_ptr<const FormaEscrita> sabida;
  if (memoria) sabida = memoria->buscar(s.forma, s.sql, s.tokens);
  if (!sabida) {
    Edicion edicion(s.sql, dialecto_, palabras_);
    Reescritura r = reescribir(edicion, catalogo);
    if ((error = r.error)) return {};
    auto f = std::make_shared<FormaEscrita>();
    f->texto = edicion.texto(false).toUtf8();
    f->literales = edicion.literales();
    for (size_t i = 0; i < f->literales.size(); ++i) {
      if (!f->literales[i].ligado) f->fijos.push_back(static_cast<int>(i));
    }
    f->salida = std::move(r.salida);
    f->tablaNueva = r.tablaNueva;
    f->serie = r.serie;
    f->tope = r.tope;
    f->cambiaEsquema = r.cambiaEsquema || !r.tablaNueva.isEmpty();
    if (f->texto.contains('\0')) {  // the engine would read no further
      error = deSentencia(QStringLiteral("La sentencia contiene un carácter nulo."));
      return {};
    }
    if (memoria && !f->cambiaEsquema) memoria->guardar(s.forma, s.sql, s.tokens, f->fijos, f);
    sabida = f;
  }
  // Before it is prepared: what a literal has wrong is told in its own words.
  std::vector<QVariant> v;
  if ((error = valores(*sabida, s, v))) return {};
  return sabida;
}

std::optional<ErrorBD> Camino::valores(const FormaEscrita& forma, const SentenciaLeida& s,
                                       std::vector<QVariant>& valores) const {
  valores.clear();
  valores.reserve(forma.literales.size());
  for (const Literal& l : forma.literales) {
    ValorLiteral v = leerLiteral(s.tokens[static_cast<size_t>(l.token)], l.lectura, dialecto_);
    if (v.error) return v.error;
    if (l.ligado) valores.push_back(std::move(v.valor));
  }
  return {};
}

QString Camino::traducir(const QString& sql, const Catalogo& catalogo) const {
  Edicion edicion(sql, dialecto_, palabras_);
  return reescribir(edicion, catalogo).error ? sql : edicion.texto(true);
}
