#include "alta/tienda_articulos.h"

namespace {

// Shop goods without service and without points, and dishes with service, are most of the list.
constexpr ArticuloTienda bien(int codigo, const char16_t* catalogo, const char16_t* descripcion, const char16_t* corta,
                              double precio, const char* unidad, const char* linea, int puntos = 0) {
  return {codigo, catalogo, descripcion, corta, precio, false, puntos, false, false, unidad, linea};
}
constexpr ArticuloTienda plato(int codigo, const char16_t* catalogo, const char16_t* descripcion, const char16_t* corta,
                               double precio, const char* linea = "01") {
  return {codigo, catalogo, descripcion, corta, precio, true, 0, false, false, "PLA", linea};
}

constexpr ArticuloTienda kArticulos[] = {
    plato(101, u"1.10.001", u"ARROZ CON PATO A LA NORTEÑA", u"ARROZ CON PATO", 38),
    plato(102, u"1.10.002", u"SECO DE CABRITO CON FRÉJOLES", u"SECO DE CABRITO", 36),
    plato(103, u"1.10.003", u"CEVICHE DE TRUCHA DE LA GRANJA", u"CEVICHE DE TRUCHA", 32),
    plato(104, u"1.10.004", u"LOMO SALTADO", u"LOMO SALTADO", 34),
    plato(105, u"1.10.005", u"AJÍ DE GALLINA", u"AJÍ DE GALLINA", 26),
    plato(106, u"1.10.006", u"CHICHARRÓN DE CERDO CON CAMOTE", u"CHICHARRÓN CERDO", 35),
    plato(107, u"1.10.007", u"CALDO DE GALLINA DE CHACRA", u"CALDO DE GALLINA", 18),
    plato(108, u"1.10.008", u"PACHAMANCA A LA OLLA", u"PACHAMANCA", 42),
    plato(109, u"1.10.009", u"TAMAL CRIOLLO CON SARSA", u"TAMAL CRIOLLO", 7.5),
    plato(110, u"1.10.010", u"PAPA A LA HUANCAÍNA", u"PAPA HUANCAÍNA", 14),
    plato(111, u"1.10.011", u"ENSALADA DE LA HUERTA", u"ENSALADA HUERTA", 15),
    plato(112, u"1.10.012", u"MENÚ DEL NIÑO CON REFRESCO", u"MENÚ NIÑO", 19.9),
    plato(113, u"1.10.013", u"MAZAMORRA MORADA", u"MAZAMORRA MORADA", 8),
    plato(114, u"1.10.014", u"PICARONES CON MIEL DE CHANCACA", u"PICARONES", 12),
    plato(201, u"1.25.001", u"CHICHA MORADA, JARRA DE UN LITRO", u"CHICHA JARRA", 16, "02"),
    plato(202, u"1.25.002", u"LIMONADA CON HIERBABUENA, VASO", u"LIMONADA VASO", 9, "02"),
    plato(203, u"1.25.003", u"CAFÉ PASADO DE LA CHACRA", u"CAFÉ PASADO", 6.5, "02"),
    plato(204, u"1.25.004", u"EMOLIENTE CALIENTE", u"EMOLIENTE", 5, "02"),
    plato(205, u"1.25.005", u"INFUSIÓN DE HIERBA LUISA", u"HIERBA LUISA", 4.5, "02"),
    bien(206, u"BEB206", u"AGUA DE MESA SIN GAS 625 ML", u"AGUA 625 ML", 3, "UND", "02"),
    bien(207, u"BEB207", u"GASEOSA AMARILLA 500 ML", u"GASEOSA 500 ML", 4, "UND", "02"),
    bien(208, u"BEB208", u"VINO BORGOÑA BOTELLA 750 ML", u"VINO BORGOÑA", 28, "UND", "02", 5),
    bien(209, u"BEB209", u"PISCO ACHOLADO BOTELLA 500 ML", u"PISCO ACHOLADO", 45, "UND", "02", 8),
    bien(301, u"LAC301", u"QUESO FRESCO DE VACA, KILO", u"QUESO FRESCO", 24.9, "KGR", "03"),
    bien(302, u"LAC302", u"QUESO MANTECOSO MADURADO, KILO", u"QUESO MANTECOSO", 32, "KGR", "03"),
    bien(303, u"LAC303", u"QUESO DE CABRA CON ORÉGANO 200 G", u"QUESO DE CABRA", 18.5, "UND", "03", 3),
    bien(304, u"LAC304", u"MANTEQUILLA DE CAMPO 250 G", u"MANTEQUILLA 250 G", 9.8, "UND", "03"),
    bien(305, u"LAC305", u"YOGUR NATURAL, LITRO", u"YOGUR NATURAL", 11.5, "UND", "03"),
    bien(306, u"LAC306", u"YOGUR DE AGUAYMANTO, LITRO", u"YOGUR AGUAYMANTO", 13.5, "UND", "03", 2),
    bien(307, u"LAC307", u"MANJAR DE LECHE 500 G", u"MANJAR 500 G", 14, "UND", "03"),
    bien(308, u"LAC308", u"LECHE FRESCA, LITRO", u"LECHE FRESCA", 5.2, "UND", "03"),
    bien(401, u"4.01.001", u"POLLO DE CORRAL, KILO", u"POLLO DE CORRAL", 15.9, "KGR", "04"),
    bien(402, u"4.01.002", u"CUY BENEFICIADO ENTERO", u"CUY ENTERO", 38, "UND", "04"),
    bien(403, u"4.01.003", u"PATO BENEFICIADO, KILO", u"PATO, KILO", 22.5, "KGR", "04"),
    bien(404, u"4.02.001", u"CHORIZO PARRILLERO X 6", u"CHORIZO X 6", 17.8, "UND", "04"),
    bien(405, u"4.02.002", u"JAMÓN DEL PAÍS 200 G", u"JAMÓN DEL PAÍS", 16.4, "UND", "04"),
    bien(406, u"4.02.003", u"LOMO FINO DE RES, KILO", u"LOMO FINO", 69.9, "KGR", "04", 10),
    bien(501, u"HUE501", u"HUEVOS DE CORRAL, DOCENA", u"HUEVOS DOCENA", 9.6, "DOC", "05"),
    bien(502, u"HUE502", u"HUEVOS DE CODORNIZ X 24", u"HUEVOS CODORNIZ", 6.5, "UND", "05"),
    bien(503, u"HUE503", u"JABA DE HUEVOS ROSADOS X 180", u"JABA HUEVOS 180", 98, "UND", "05"),
    bien(601, u"6.01.001", u"PALTA FUERTE, KILO", u"PALTA FUERTE", 12.5, "KGR", "06"),
    bien(602, u"6.01.002", u"CHIRIMOYA CUMBE, KILO", u"CHIRIMOYA", 11, "KGR", "06"),
    bien(603, u"6.01.003", u"LÚCUMA DE SEDA, KILO", u"LÚCUMA", 14.5, "KGR", "06"),
    bien(604, u"6.01.004", u"AGUAYMANTO FRESCO 500 G", u"AGUAYMANTO 500 G", 8.9, "UND", "06"),
    bien(605, u"6.02.001", u"PAPA AMARILLA, KILO", u"PAPA AMARILLA", 4.8, "KGR", "06"),
    bien(606, u"6.02.002", u"CHOCLO SERRANO, UNIDAD", u"CHOCLO", 2.5, "UND", "06"),
    bien(607, u"6.02.003", u"AJÍ AMARILLO, KILO", u"AJÍ AMARILLO", 7.2, "KGR", "06"),
    bien(701, u"PAN701", u"PAN SERRANO X 6", u"PAN SERRANO X 6", 6, "UND", "07"),
    bien(702, u"PAN702", u"ALFAJOR DE MAICENA", u"ALFAJOR", 3.5, "UND", "07"),
    bien(703, u"PAN703", u"KEKE DE PLÁTANO ENTERO", u"KEKE DE PLÁTANO", 22, "UND", "07"),
    bien(704, u"PAN704", u"EMPANADA DE CARNE AL HORNO", u"EMPANADA CARNE", 8.5, "UND", "07"),
    bien(801, u"ABA801", u"MIEL DE ABEJA PURA 1 KG", u"MIEL 1 KG", 34, "UND", "08", 4),
    bien(802, u"ABA802", u"MERMELADA DE SAÚCO 300 G", u"MERMELADA SAÚCO", 12.9, "UND", "08"),
    bien(803, u"ABA803", u"ACEITUNA BOTIJA, KILO", u"ACEITUNA BOTIJA", 26.5, "KGR", "08"),
    bien(804, u"ABA804", u"QUINUA PERLADA 1 KG", u"QUINUA 1 KG", 13.8, "UND", "08"),
    bien(805, u"ABA805", u"CAFÉ TOSTADO MOLIDO 250 G", u"CAFÉ MOLIDO 250", 21, "UND", "08", 2),
    bien(806, u"ABA806", u"ALGARROBINA 500 ML", u"ALGARROBINA", 19.5, "UND", "08"),
    {807, u"ABA807", u"MAÍZ AMARILLO DURO, SACO DE 50 KG", u"MAÍZ SACO 50 KG", 92, false, 0, false, true, "SAC", "08"},
    {808, u"ABA808", u"AZÚCAR RUBIA, SACO DE 50 KG", u"AZÚCAR SACO 50", 185, false, 0, false, true, "SAC", "08"},
    {901, u"ART901", u"CANASTA DE CARRIZO MEDIANA", u"CANASTA CARRIZO", 30, false, 40, true, false, "UND", "09"},
    {902, u"ART902", u"SOMBRERO DE PAJA DE NIÑO", u"SOMBRERO NIÑO", 25, false, 30, true, false, "UND", "09"},
    {903, u"ART903", u"TAZA DE BARRO EL MOLLE", u"TAZA EL MOLLE", 0, false, 0, false, false, "UND", "09", Venta::Canje},
    {904, u"ART904", u"LLAVERO DE LANA DE OVEJA", u"LLAVERO DE LANA", 6, false, 0, false, false, "UND", "09",
     Venta::Suspendido},
    {905, u"ART905", u"CALENDARIO DE PARED 2025", u"CALENDARIO 2025", 10, false, 0, false, false, "UND", "09",
     Venta::Retirado},
    {906, u"PAN906", u"PANETÓN CASERO DE TEMPORADA", u"PANETÓN CASERO", 29.9, false, 0, false, false, "UND", "07",
     Venta::Retirado},
};

}  // namespace

std::span<const ArticuloTienda> ArticulosDeTienda() { return kArticulos; }
