#include "admin/demo_papel.h"

#include <gtest/gtest.h>

TEST(Papel, IsReadWithoutCommandsAndWithoutItsMargins) {
  const QByteArray gaveta("\x1B\x70\x00\x19\xFA\r\n", 7);
  const QByteArray ticket("\x1B@\r\n\r\n  TOTAL S/. 10.00\r\n\r\n\r\n\r\nSE\xD1OR  1\r\n\r\n\r\n\x1D\x56\x01\r\n");
  EXPECT_EQ(TextoDePapel(gaveta + ticket), QStringLiteral("  TOTAL S/. 10.00\n\nSEÑOR  1\n"));
  EXPECT_EQ(TextoDePapel(QByteArray("\x1B\x07\x0B\x37\x07uno\nV\x1B", 12)), "uno\nV\n") << "a command cut short";
  EXPECT_EQ(TextoDePapel({}), "");
}
