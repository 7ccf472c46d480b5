// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// The closings in a data folder, counted from 1, whatever the clock says. The last one is noted before its document is
/// saved as closed, so that a count is not given twice.
class ClosingCount
{
public:
    /// @param folder the register's data folder
    explicit ClosingCount(const QString& folder);

    struct Closing {
        int count = 0;
        int document = 0; ///< its number; it may not have been closed after all
    };

    /// The closing that was noted last; nothing when none was, or the note is lost.
    std::optional<Closing> last() const;
    /// A failure is logged: the document can be closed all the same.
    void note(const Closing& closing) const;

private:
    QString m_folder;
};
