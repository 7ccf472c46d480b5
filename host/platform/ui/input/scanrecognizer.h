// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

class QKeyEvent;

/// Tells a scan from typing, by the keys that come in.
///
/// A scanner types like a keyboard, but faster than any hand: characters that follow one another within 50 ms and end
/// in Return are a scan. A scanner that is set up to send a prefix is known by that prefix, at any speed.
///
/// For a form that does with scans what is its own: it watches the keys of a field, hands them to key(), and asks
/// finish() at Return. So that the Return gets there, the form is shown with EInput::Scanner, or the field carries the
/// property recognizesScans.
class REGISTERPLATFORM_EXPORT ScanRecognizer
{
public:
    /// The longest time between two characters of a scan.
    static constexpr std::chrono::milliseconds longestGap{50};

    /// The dynamic property of a field whose form takes or refuses scans itself: to be set, true. Without it, the
    /// Return of a scan reaches no field of a form that was shown without EInput::Scanner.
    static constexpr char recognizesScans[] = "recognizesScans";

    /// What a scanner sends before and after the code, besides control characters; may be empty.
    ScanRecognizer(const QString& prefix, const QString& suffix);

    /// For the scanner of the configuration: "Scanner:prefix" and "Scanner:suffix".
    static ScanRecognizer configured();

    /// A scan that has ended.
    struct Scan {
        QString text;        ///< without prefix, suffix and control characters
        QString fieldBefore; ///< what stood in the field when the scan began
    };

    /// A key other than Return was pressed: a character, or one that no scanner sends (a held key among them), before
    /// which nothing was a scan. Modifiers count for neither. An event without a time is taken for typing.
    /// @param field what stands in the field before the key
    void key(const QKeyEvent& key, const QString& field);

    /// Return came in: the scan that it ends; nothing when it was typed. What came before is forgotten.
    /// @param time of the event, in milliseconds; 0: unknown
    std::optional<Scan> finish(quint64 time);

private:
    void character(QChar character, quint64 time, const QString& field);
    void reset();
    /// Where a scan may have begun.
    struct Start {
        qsizetype at = 0; ///< in the input
        QString field;    ///< what stood in the field before it
    };

    bool followsFast(quint64 time) const;
    std::optional<Start> scanStart(quint64 time) const;
    QString stripped(QString text) const;

    QString m_prefix;
    QString m_suffix;
    QString m_input;                 ///< since the last Return
    Start m_burst;                   ///< of the characters that follow fast
    std::optional<Start> m_prefixed; ///< of the last prefix
    QStringList m_fields;            ///< what stood in the field before the last characters, as many as the prefix has
    quint64 m_last = 0;
};
