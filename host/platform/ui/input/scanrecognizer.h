// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

class QKeyEvent;

/// Distinguishes a scan from typing.
///
/// A scanner types like a keyboard, but faster than any hand: characters that follow one another within 50 ms and end
/// in Return are a scan. A scanner that sends a prefix is recognized by that prefix, at any speed.
///
/// A form uses it through a ScanFilter.
class REGISTERPLATFORM_EXPORT ScanRecognizer
{
public:
    /// The longest time between two characters of a scan.
    static constexpr std::chrono::milliseconds longestGap{50};

    /// The dynamic property (true) of a field whose form takes or refuses scans itself. Without it, the Return of a
    /// scan reaches no field of a form that was shown without EInput::Scanner.
    static constexpr char recognizesScans[] = "recognizesScans";

    /// @param prefix what the scanner sends before the code, besides control characters; may be empty
    /// @param suffix what it sends after the code
    ScanRecognizer(const QString& prefix, const QString& suffix);

    /// For the scanner of the configuration: "Scanner:prefix" and "Scanner:suffix".
    static ScanRecognizer configured();

    /// A scan that has ended.
    struct Scan {
        QString text;        ///< without prefix, suffix and control characters
        QString fieldBefore; ///< the text of the field when the scan began
    };

    /// Takes a key that was pressed.
    ///
    /// Return ends what came before it, a scan or typing, which is then forgotten. A key that no scanner sends, for
    /// example a held key, makes typing of what came before it. Modifiers do not count. An event without a time is
    /// typing.
    ///
    /// @param field the text of the field before the key
    /// @return the scan that the key ends; nothing when it ends none
    std::optional<Scan> take(const QKeyEvent& key, const QString& field);

private:
    void write(const QKeyEvent& key, const QString& field);
    /// @param time of the Return, in milliseconds; 0: unknown
    std::optional<Scan> finish(quint64 time);
    void character(QChar character, quint64 time, const QString& field);
    void reset();
    /// Where a scan may have begun.
    struct Start {
        qsizetype at = 0; ///< in the input
        QString field;    ///< its text before
    };

    bool followsFast(quint64 time) const;
    std::optional<Start> scanStart(quint64 time) const;
    QString stripped(QString text) const;

    QString m_prefix;
    QString m_suffix;
    QString m_input;                 ///< since the last Return
    Start m_burst;                   ///< of the characters that follow fast
    std::optional<Start> m_prefixed; ///< of the last prefix
    QStringList m_fields;            ///< the field's texts before the last characters, as many as the prefix has
    quint64 m_last = 0;
};
