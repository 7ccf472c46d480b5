// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QHeaderView>

/// A header whose captions may differ from the model's.
class ColumnHeader : public QHeaderView
{
public:
    explicit ColumnHeader(QWidget* parent);

    /// An empty caption gives the model's back.
    void setCaption(int section, const QString& caption);

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    QSize sectionSizeFromContents(int section) const override;

private:
    QHash<int, QString> m_captions;
};
