// SPDX-License-Identifier: MIT
#pragma once

namespace control
{

/// The register's actions. A plug-in may use numbers of its own.
enum EActionType : int {
    PluginCommand = 94,   ///< a configured function key, served by a plug-in; carries the key's arguments
    CancelDocument = 131, ///< cancel the open document, by key
    Subtotal = 133,
    SubtotalAndPayment = 144,
    DialogAnswer = 187,   ///< its arguments are the answer of the form on top
    RemovePosition = 202, ///< carries "positionNumber"
    CancelDocumentFromMenu = 206,
    SelectGoods = 219,      ///< "filterByInn" (empty: all goods), "medicineInfo"; out "result"
    AddSelectedGoods = 220, ///< "result"; out "positionNumber"
    VoidDocument = 224,     ///< a stored or finished document; carries "document"
};

} // namespace control
