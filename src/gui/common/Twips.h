// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Sizes of the windows are kept in twips, the unit of the original layouts: 15 to a pixel
// at 96 dpi. Qt scales the pixels on high-density screens.

inline int Px(int twips)
{
    return (twips + 7) / 15;
}
