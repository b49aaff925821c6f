#pragma once
#include <QString>

// The number of a customer's card as it is stored: eight digits, with zeros in front. "" for a blank text, and for a
// longer number, which is nobody's: its tail could be another customer's card.
QString NumeroTarjeta(const QString& tecleado);
