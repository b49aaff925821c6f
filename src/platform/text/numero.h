#pragma once
// Numbers as the screens, the paper and the statements show them. Nothing else in the program turns a number
// into text or back. Values are doubles; rounding happens only here, when a mask makes text.
#include <QString>
#include <QStringView>

// The leading number of `texto` (blanks before it are skipped), 0 when there is none. "12abc" is 12, "1,200" is 1.
double Val(QStringView texto);

// The largest whole number not above `valor`: Int(-2.5) is -3.
double Int(double valor);

// `valor` rounded to `decimales` places, half away from zero on its decimal text of 15 significant digits,
// so that 1.005 gives 1.01 although its binary value lies below.
double Redondear(double valor, int decimales);

// A whole number by the same rule: 2.5 gives 3, -2.5 gives -3. Out of range gives the nearest limit.
qint64 AEntero(double valor);

// `valor` through a mask of '0', '#', ',' and '.': "0.00", "###,###,##0.00", "000000", "##0.00". A ',' among the
// places of the whole part asks for thousands; the decimals are as many as stand behind the point. Rounds as
// Redondear; what rounds to zero carries no sign. Other characters of the mask stand as they are.
QString Formatear(double valor, QStringView mascara);

// `valor` without a mask: up to 15 significant digits, a point, no exponent for the amounts of a shop,
// no trailing zeros: 5 gives "5", 0.18 gives "0.18".
QString TextoDe(double valor);

// Whether `texto` is a number and nothing else: blanks around it, one sign, digits with commas at the thousands and one
// point are accepted. Blank text, letters and exponents are not.
bool EsNumerico(QStringView texto);

// Whether it would be one but for a comma that stands for a point, as in "3,75".
bool ConComaDecimal(QStringView texto);

// An amount read back from a field: the commas are taken out, then Val. 0 where a comma stands for a point.
double LeerImporte(const QString& texto);
