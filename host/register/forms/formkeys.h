// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

/// The keys of the register's forms. Their buttons and the help name them from here.
namespace formkeys
{

// Goods selection
inline constexpr Qt::Key allGoods = Qt::Key_F4;

// Return
inline constexpr Qt::Key allPositions = Qt::Key_F4;

// List of documents
inline constexpr Qt::Key resume = Qt::Key_F6;
inline constexpr Qt::Key returnSale = Qt::Key_F7;
inline constexpr Qt::Key voidDocument = Qt::Key_F8;
inline constexpr Qt::Key printCopy = Qt::Key_F9;

} // namespace formkeys
