// SPDX-License-Identifier: MIT
// The keys of a scanner and of a cashier, mixed. An input is the length of the prefix, the prefix, and two bytes a key:
// the milliseconds since the key before, and its character.

#include "fuzztarget.h"

#include "scanrecognizer.h"

#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr char returnKey = '\r';
constexpr char backspaceKey = '\b';
constexpr qsizetype shortestScan = 4;

bool isPrintable(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar character) { return character.isPrint(); });
}

class Keyboard
{
public:
    explicit Keyboard(const QString& prefix)
        : m_hasPrefix(!prefix.isEmpty())
        , m_recognizer(prefix, QString())
    {
    }

    void press(int gap, char character)
    {
        m_time += quint64(gap);
        m_row = gap <= ScanRecognizer::longestGap.count() ? m_row + 1 : 1;
        if (character == returnKey) {
            finish();
            return;
        }
        const bool isBackspace = character == backspaceKey;
        QKeyEvent key(QEvent::KeyPress, isBackspace ? int(Qt::Key_Backspace) : int(character), Qt::NoModifier,
                      QString(QChar::fromLatin1(character)));
        key.setTimestamp(m_time);
        promise(!m_recognizer.take(key, m_field), "only Return ends a scan");
        if (isBackspace) {
            m_field.chop(1);
        } else {
            m_field += QChar::fromLatin1(character);
        }
    }

private:
    std::optional<ScanRecognizer::Scan> pressReturn()
    {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s);
        key.setTimestamp(m_time);
        return m_recognizer.take(key, m_field);
    }

    void finish()
    {
        const auto scan = pressReturn();
        if (scan) {
            promise(isPrintable(scan->text), "a scan can be shown");
            promise(m_row > shortestScan || m_hasPrefix, "slow typing is no scan");
            promise(m_field.startsWith(scan->fieldBefore), "a scan knows the text before it");
        }
        promise(!pressReturn(), "keys before a Return are forgotten");
        m_field = scan ? scan->fieldBefore : QString();
        m_row = 0;
    }

    bool m_hasPrefix;
    ScanRecognizer m_recognizer;
    QString m_field;
    quint64 m_time = 1000;
    qsizetype m_row = 0; ///< keys in quick succession
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    const qsizetype prefix = bytes.isEmpty() ? 0 : static_cast<unsigned char>(bytes.front()) % 4;
    Keyboard keyboard(QString::fromLatin1(bytes.mid(1, prefix)));
    for (qsizetype at = 1 + prefix; at + 1 < bytes.size(); at += 2) {
        keyboard.press(static_cast<unsigned char>(bytes[at]), bytes[at + 1]);
    }
    return 0;
}
