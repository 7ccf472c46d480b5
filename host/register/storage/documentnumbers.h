// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Numbers documents: 1, 2, 3 …, kept in a file of the data folder.
class DocumentNumbers
{
public:
    explicit DocumentNumbers(const QString& folder);

    /// The next number. A file that is not there, or that holds no number, counts as none given yet.
    int next();
    /// Makes sure that `number` and those below it are not given again.
    void pass(int number);

private:
    int last() const;
    void setLast(int number);

    QString m_file;
    int m_last = 0; ///< given or passed by this object
};
