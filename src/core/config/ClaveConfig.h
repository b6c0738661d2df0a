// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The scrambling of the passwords kept in config.ini. It only keeps them from being read
// at a glance; it is not encryption.

#include <QString>

// The key text of the program. Files scrambled under one key do not read under another.
inline QString ClaveTextoConfig()
{
    return QStringLiteral("XX9QZk47t");
}

inline constexpr int kModoCifrar = 0;
inline constexpr int kModoDescifrar = 65535;

// Mode 0 scrambles, mode 65535 unscrambles, any other mode answers empty text. Each
// character pairs with the key character in the same position, the key starting over
// when it runs out, and their Windows-1252 codes are added (mode 0) or subtracted (mode
// 65535) with a wrap by 255, not 256: a sum of exactly 255 stays 255, a result of 0
// stays 0. The answer has the length of the text.
QString ClaveConfig(const QString &texto, const QString &clave, int modo);
