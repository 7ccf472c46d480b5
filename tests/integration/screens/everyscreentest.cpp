// SPDX-License-Identifier: MIT
// No screen is forgotten: those of the sources and of the page about them are those that are looked at and described.
#include "screens.h"

#include <QDirIterator>
#include <QRegularExpression>

#include <algorithm>

namespace
{

QString read(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// What the first group of the expression finds in the files, each once and sorted.
QStringList foundIn(const QStringList& files, const QRegularExpression& expression)
{
    QStringList found;
    for (const QString& file : files) {
        auto matches = expression.globalMatch(read(file));
        while (matches.hasNext()) {
            found.append(matches.next().captured(1));
        }
    }
    found.removeDuplicates();
    found.sort();
    return found;
}

QStringList files(const QString& pattern)
{
    QStringList all;
    for (const char* program : {"/host", "/plugin", "/recovery"}) {
        QDirIterator files(QString::fromUtf8(SOURCES) + QLatin1StringView(program), {pattern}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            all.append(files.next());
        }
    }
    return all;
}

/// The outermost widgets of all layouts.
QStringList formsOfLayouts()
{
    static const QRegularExpression root(u"<ui version[^$]*?<widget class=\"\\w+\" name=\"(\\w+)\""_s);
    return foundIn(files(u"*.ui"_s), root);
}

/// Screens that are made without a layout.
QStringList screensOfSources()
{
    static const QRegularExpression name(u"^ +setObjectName\\(u\"(\\w+(?:Form|Screen|Panel))\"_s\\)"_s,
                                         QRegularExpression::MultilineOption);
    return foundIn(files(u"*.cpp"_s), name);
}

} // namespace

TEST(EveryScreen, ofTheSources_isLookedAt)
{
    const QStringList forms = formsOfLayouts();
    const QStringList screens = screensOfSources();
    EXPECT_EQ(forms.size(), files(u"*.ui"_s).size()) << "each layout has its form";
    EXPECT_GE(screens.size(), 4);
    QStringList lookedAt = Screens::names();
    lookedAt.removeDuplicates();
    lookedAt.sort();
    QStringList all = forms + screens;
    all.sort();
    EXPECT_EQ(lookedAt.join(u' ').toStdString(), all.join(u' ').toStdString());
}

TEST(EveryScreen, thatIsLookedAt_isDescribed)
{
    static const QRegularExpression named(u"`((?:\\w+(?:Form|Screen|Panel))|[\\w/]+\\.ui)`"_s);
    const QStringList described = foundIn({QString::fromUtf8(SOURCES) + u"/docs/screens.md"_s}, named);
    for (const QString& screen : Screens::names()) {
        const QString layout = u'/' + screen.toLower().chopped(u"form"_s.size()) + u".ui"_s;
        const bool isInLayout = std::any_of(described.cbegin(), described.cend(),
                                            [&layout](const QString& name) { return name.endsWith(layout); });
        EXPECT_TRUE(described.contains(screen) || isInLayout) << screen.toStdString();
    }
}
