// SPDX-License-Identifier: MIT
#include "reportprinter.h"
#include "inplace.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

class Paper : public ReportPrinter
{
public:
    void print(const tr::Tr& title, const QStringList& lines) override { printed = QStringList{title.ui()} + lines; }

    QStringList printed;
};

} // namespace

TEST(ReportPrinter, thatOfTheHost_prints)
{
    const Own<ReportPrinter, Paper> host;
    Singleton<ReportPrinter>::get()->print({tr::undefined, u"Сверка"_s}, {u"первая"_s, u"вторая"_s});
    EXPECT_EQ(host.object.printed, (QStringList{u"Сверка"_s, u"первая"_s, u"вторая"_s}));
}
