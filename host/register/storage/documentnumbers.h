// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Numbers the documents 1, 2, 3 … The last number is kept in a file of the data folder.
class DocumentNumbers
{
public:
    explicit DocumentNumbers(const QString& folder);

    /// The next number; 1 when the file is missing or holds no number.
    int next();
    /// Makes sure that next() returns numbers greater than `number` only.
    void pass(int number);

private:
    int last() const;
    void setLast(int number);

    QString m_folder;
    int m_last = 0; ///< holds even when the file cannot be written
};
