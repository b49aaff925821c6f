#include "platform/text/pagina.h"

#include <string_view>

#include "platform/text/texto.h"

namespace {

// 0x80 to 0xFF, as the vendors of the PC published them; 858 is 850 with the euro in the place of the dotless i.
// clang-format off
constexpr std::u16string_view kPc437 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
    u"áíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
    u"αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
constexpr std::u16string_view kPc850 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒ"
    u"áíóúñÑªº¿®¬½¼¡«»░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
    u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀"
    u"ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0";
constexpr std::u16string_view kPc858 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒ"
    u"áíóúñÑªº¿®¬½¼¡«»░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
    u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤ðÐÊËÈ€ÍÎÏ┘┌█▄¦Ì▀"
    u"ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0";
// clang-format on

const struct {
  Pagina pagina;
  QStringView nombre;
  std::u16string_view altos;  // none: Windows-1252
} kPaginas[] = {
    {Pagina::Windows1252, u"Windows-1252", {}},
    {Pagina::Pc858, u"858", kPc858},
    {Pagina::Pc850, u"850", kPc850},
    {Pagina::Pc437, u"437", kPc437},
};

char16_t llano(char16_t c) {
  switch (c) {
    case u'‘':
    case u'’':
    case u'´': return u'\'';
    case u'“':
    case u'”': return u'"';
    case u'–':
    case u'—': return u'-';
    default: break;
  }
  const QString partes = QChar(c).decomposition();
  return partes.isEmpty() || partes[0].unicode() >= 0x80 ? u'?' : partes[0].unicode();
}

char byteDe(char16_t c, std::u16string_view altos) {
  if (c < 0x80) return static_cast<char>(c);
  const auto n = altos.find(c);
  return static_cast<char>(n == std::u16string_view::npos ? llano(c) : 0x80 + n);
}

}  // namespace

QString NombrePagina(Pagina pagina) {
  for (const auto& p : kPaginas)
    if (p.pagina == pagina) return p.nombre.toString();
  return {};
}

Pagina PaginaDeNombre(const QString& nombre) {
  for (const auto& p : kPaginas)
    if (nombre.compare(p.nombre, Qt::CaseInsensitive) == 0) return p.pagina;
  return Pagina::Windows1252;
}

QByteArray EnPagina(const QString& texto, Pagina pagina) {
  std::u16string_view altos;
  for (const auto& p : kPaginas)
    if (p.pagina == pagina) altos = p.altos;
  if (altos.empty()) return AUnByte(texto);
  QByteArray sale;
  sale.reserve(texto.size());
  for (const QChar c : texto.normalized(QString::NormalizationForm_C)) {
    if (!c.isHighSurrogate()) sale += byteDe(c.unicode(), altos);  // of two units the second one counts
  }
  return sale;
}
