// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// What a cashier does and sees, as steps of a scenario.
namespace cashier
{

/// The document of three prescriptions is on the screen.
inline const QByteArray findsTheDocument = R"({"contains": "Амлонорд", "in": "receiptTable"})";
inline const QByteArray isIdle = R"({"expect": "", "in": "receiptTable"}, {"visible": false, "in": "paymentPanel"})";

inline const QByteArray opensADocument = R"({"key": "F2"}, {"receipt": {"positions": []}})";
inline const QByteArray subtotal = R"({"key": "F6"}, {"expect": "ПОДЫТОГ", "in": "paymentCaptionLabel"})";
inline const QByteArray toThePayment = R"({"key": "F12"}, {"expect": "К ОПЛАТЕ", "in": "paymentCaptionLabel"})";
inline const QByteArray backToThePositions = R"({"key": "Esc"}, {"visible": false, "in": "paymentPanel"})";
/// Pays the exact sum.
inline const QByteArray pays = R"({"key": "F12"}, {"wait": "receivedLineEdit"}, {"key": "Return"}, )" + isIdle;

inline const QByteArray removesTheFirst =
    R"({"row": 0, "in": "receiptTable"}, {"key": "F8"}, {"click": "yesButton"}, {"visible": false, "in": "questionForm"})";
inline const QByteArray removesTheSecond =
    R"({"row": 1, "in": "receiptTable"}, {"key": "F8"}, {"click": "yesButton"}, {"visible": false, "in": "questionForm"})";
/// Waits for the end of a removal: a key that is pressed while the registry is asked does nothing.
inline const QByteArray twoPositionsAreLeft = R"({"receipt": {"positions": [{}, {}]}})";
inline const QByteArray cancelsTheDocument =
    R"({"key": "F9"}, {"click": "yesButton"}, {"visible": false, "in": "questionForm"})";

inline const QByteArray cancelsTheDocumentFromTheMenu =
    R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "5"}, {"click": "yesButton"},
       {"visible": false, "in": "questionForm"})";

/// Dispenses three doses of the next prescription of the document's card, in part.
inline const QByteArray servesTheNext =
    R"({"key": "F5"}, {"wait": "electronicPrescriptionsTableView"}, {"key": "Return"}, {"wait": "chooseButton"},
       {"key": "Return"}, {"wait": "goodsTable"}, {"key": "Return"}, {"wait": "inputLineEdit"}, {"type": "3"},
       {"key": "Return"}, {"click": "partDispenseButton"}, {"visible": false, "in": "partDispenseButton"})";

/// Dispenses four doses of another card's prescription, in part, in a document of its own.
inline const QByteArray servesAnotherCard =
    R"({"key": "F2"}, {"key": "F5"}, {"wait": "inputLineEdit"}, {"scan": "1100000000000001"},
       {"wait": "electronicPrescriptionsTableView"}, {"key": "Return"}, {"wait": "chooseButton"}, {"key": "Return"},
       {"wait": "goodsTable"}, {"key": "Return"}, {"wait": "inputLineEdit"}, {"type": "4"}, {"key": "Return"},
       {"click": "partDispenseButton"}, {"visible": false, "in": "partDispenseButton"})";

inline const QByteArray suspends =
    R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "1"}, {"visible": false, "in": "menuForm"}, )" + isIdle;
inline const QByteArray opensTheDocuments =
    R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "2"}, {"wait": "documentTable"})";
inline const QByteArray resumes =
    opensTheDocuments + R"(, {"row": 0, "in": "documentTable"}, {"click": "takeUpButton"}, )" + findsTheDocument;

/// Opens the return of sale number 1.
inline const QByteArray opensTheReturn =
    R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "3"}, {"wait": "inputLineEdit"}, {"type": "1"}, {"key": "Return"})";
/// The same, with all positions of a sale that has several.
inline const QByteArray opensTheWholeReturn = opensTheReturn + R"(, {"wait": "returnForm"}, {"key": "Return"})";
inline const QByteArray paysOut =
    R"({"key": "F12"}, {"expect": "К ВОЗВРАТУ", "in": "paymentCaptionLabel"}, {"key": "Return"}, )" + isIdle;
/// Voids document number 1.
inline const QByteArray voids =
    R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "4"}, {"wait": "inputLineEdit"}, {"type": "1"}, {"key": "Return"},
       {"click": "yesButton"}, {"visible": false, "in": "questionForm"})";

/// Reads a message and closes it.
///
/// @param shown a part of it
inline QByteArray reads(const QByteArray& shown)
{
    return R"({"wait": "messageForm"}, {"contains": ")" + shown +
           R"(", "in": "messageLabel"}, {"key": "Return"}, {"visible": false, "in": "messageForm"})";
}

/// Tries something and reads the message that says why it is not done.
///
/// @param shown a part of the message
inline QByteArray tries(const QByteArray& what, const char* shown)
{
    return what + ", " + reads(shown);
}

} // namespace cashier
