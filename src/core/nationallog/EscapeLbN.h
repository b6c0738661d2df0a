// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The escaping of the password sent to the national log service. Only the password is
// escaped, and only these nineteen characters: the service decodes exactly this set.

#include <QString>

// "%" first, so that the "%" of an escape is never escaped again; then "!", "*", "'",
// "(", ")", ";", ":", "@", "&", "=", "+", "$", ",", "/", "?", "#", "[", "]". Anything
// else, blanks included, goes as it stands.
QString EscaparLbN(const QString &texto);
