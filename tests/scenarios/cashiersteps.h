// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// What a cashier does, as steps of a scenario.
namespace cashier
{

/// The receipt of three prescriptions is on the screen.
inline const QByteArray findsTheDocument = R"({"contains": "Амлонорд", "in": "receiptTable"})";
inline const QByteArray isIdle = R"({"expect": "", "in": "receiptTable"}, {"visible": false, "in": "paymentPanel"})";

inline const QByteArray opensADocument = R"({"key": "F2"}, {"receipt": {"positions": []}})";
inline const QByteArray subtotal = R"({"key": "F6"}, {"expect": "ПОДЫТОГ", "in": "paymentCaptionLabel"})";
inline const QByteArray toThePayment = R"({"key": "F12"}, {"expect": "К ОПЛАТЕ", "in": "paymentCaptionLabel"})";
inline const QByteArray backToThePositions = R"({"key": "Esc"}, {"visible": false, "in": "paymentPanel"})";
/// The exact sum.
inline const QByteArray pays = R"({"key": "F12"}, {"wait": "receivedLineEdit"}, {"key": "Return"}, )" + isIdle;

inline const QByteArray removesTheFirst =
    R"({"row": 0, "in": "receiptTable"}, {"key": "F8"}, {"click": "yesButton"}, {"visible": false, "in": "questionForm"})";
inline const QByteArray removesTheSecond =
    R"({"row": 1, "in": "receiptTable"}, {"key": "F8"}, {"click": "yesButton"}, {"visible": false, "in": "questionForm"})";
inline const QByteArray cancelsTheDocument =
    R"({"key": "F9"}, {"click": "yesButton"}, {"visible": false, "in": "questionForm"})";

inline const QByteArray cancelsTheDocumentFromTheMenu =
    R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "5"}, {"click": "yesButton"},
       {"visible": false, "in": "questionForm"})";

/// Three doses of the next prescription of the receipt's card, in part.
inline const QByteArray servesTheNext =
    R"({"key": "F5"}, {"wait": "electronicPrescriptionsTableView"}, {"key": "Return"}, {"wait": "chooseButton"},
       {"key": "Return"}, {"wait": "goodsTable"}, {"key": "Return"}, {"wait": "inputLineEdit"}, {"type": "3"},
       {"key": "Return"}, {"click": "partDispenseButton"}, {"visible": false, "in": "partDispenseButton"})";

/// Four doses of another card's prescription, in part, on a receipt of its own.
inline const QByteArray servesAnotherCard =
    R"({"key": "F2"}, {"key": "F5"}, {"wait": "inputLineEdit"}, {"scan": "1100000000000001"},
       {"wait": "electronicPrescriptionsTableView"}, {"key": "Return"}, {"wait": "chooseButton"}, {"key": "Return"},
       {"wait": "goodsTable"}, {"key": "Return"}, {"wait": "inputLineEdit"}, {"type": "4"}, {"key": "Return"},
       {"click": "partDispenseButton"}, {"visible": false, "in": "partDispenseButton"})";

inline const QByteArray putsAside =
    R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "1"}, {"visible": false, "in": "menuForm"}, )" + isIdle;
inline const QByteArray opensTheDocuments =
    R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "2"}, {"wait": "documentTable"})";
inline const QByteArray takesUp =
    opensTheDocuments + R"(, {"row": 0, "in": "documentTable"}, {"click": "takeUpButton"}, )" + findsTheDocument;

/// Of the sale number 1.
inline const QByteArray opensTheReturn =
    R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "3"}, {"wait": "inputLineEdit"}, {"type": "1"}, {"key": "Return"})";
inline const QByteArray paysOut =
    R"({"key": "F12"}, {"expect": "К ВОЗВРАТУ", "in": "paymentCaptionLabel"}, {"key": "Return"}, )" + isIdle;
/// The document number 1.
inline const QByteArray voids =
    R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "4"}, {"wait": "inputLineEdit"}, {"type": "1"}, {"key": "Return"},
       {"click": "yesButton"}, {"visible": false, "in": "questionForm"})";

/// Does something and is told why it is not done.
inline QByteArray tries(const QByteArray& what, const char* shown)
{
    return what + R"(, {"wait": "messageForm"}, {"contains": ")" + shown +
           R"(", "in": "messageLabel"}, {"key": "Return"}, {"visible": false, "in": "messageForm"})";
}

} // namespace cashier
