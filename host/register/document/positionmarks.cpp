// SPDX-License-Identifier: MIT
#include "positionmarks.h"

#include "jsonfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

/// A text that is shown as it is, or an object with the key of the message catalogues and the default text.
tr::Tr readWords(const QJsonValue& value)
{
    const QString key = value["key"_L1].toString();
    if (key.isEmpty()) {
        return {tr::undefined, value.isObject() ? value["text"_L1].toString() : value.toString()};
    }
    return {key, value["text"_L1].toString()};
}

/// Empty when they are no JSON object.
QJsonObject optionsOf(const Position& position)
{
    return QJsonDocument::fromJson(position.getExtendedOptions().toUtf8()).object();
}

QString labelled(const tr::Tr& label, const QString& value)
{
    return label.ui() + u": "_s + value;
}

/// The first four UTF-16 units of a mark, without half of a surrogate pair at the end.
QString shortened(const QString& mark)
{
    const QString start = mark.left(4);
    return start.size() < mark.size() && start.back().isHighSurrogate() ? start.chopped(1) : start;
}

/// True when the position's price is that share of its price before, rounded to kopecks. It is not when another rule
/// made the price, for example a lowest one.
bool isPaidShare(double share, const Position& position)
{
    constexpr double rounding = 0.51; // half a kopeck, and what binary fractions lose
    const auto before = double(position.initialPrice().count());
    return std::abs(share * before - double(position.price().count())) <= rounding;
}

/// The discount in percent, for example "33,33 %"; empty when the customer was given none, or another one.
/// @param paidShare the fraction of the price that is paid
QString discountText(double paidShare, const Position& position)
{
    const double percent = 100.0 - std::round(paidShare * 10000.0) / 100.0;
    if (!(percent > 0.0 && percent <= 100.0) || position.price() >= position.initialPrice() ||
        !isPaidShare(paidShare, position)) {
        return {};
    }
    return QString::number(percent, 'g', 4).replace(u'.', u',') + QChar::Nbsp + u'%';
}

} // namespace

void PositionMarks::load(const QString& file)
{
    if (!QFile::exists(file)) {
        return;
    }
    auto* log = Log4Qt::LogManager::logger(u"register"_s);
    const Expected<QJsonObject> root = readJsonObject(file);
    if (!root) {
        log->warn(u"Position marks cannot be read: "_s + root.failure().detail);
        return;
    }
    const QString plugin = QFileInfo(file).absoluteDir().dirName();
    m_plugins.append(plugin);
    for (const auto entry : root->value("positions"_L1).toArray()) {
        Mark mark = readMark(entry.toObject(), plugin);
        if (mark.tag.isEmpty()) {
            log->warn(u"Position mark without a tag left out: "_s + file);
        } else {
            m_marks.append(std::move(mark));
        }
    }
    for (const auto entry : root->value("document"_L1).toArray()) {
        const QJsonObject line = entry.toObject();
        m_documentLines.append(
            {line.value("plugin"_L1).toString(), line.value("key"_L1).toString(), readWords(line.value("label"_L1))});
    }
}

PositionMarks::Look PositionMarks::look(const Position& position) const
{
    const QList<const Mark*> marks = marksOf(position);
    if (marks.isEmpty()) {
        return {};
    }
    const QJsonObject options = optionsOf(position);
    Look look{.mark = shortened(firstText(marks, &Mark::mark)),
              .description = firstText(marks, &Mark::description),
              .state = {},
              .undoing = {},
              .stateColour = {},
              .receiptLines = receiptLines(marks, position, options)};
    if (const State* state = shownState(marks, options)) {
        look.state = state->text.ui();
        look.stateColour = state->colour;
        look.undoing = state->undoing.ui();
    }
    return look;
}

QString PositionMarks::origin(const Position& position) const
{
    const QString said = firstText(marksOf(position), &Mark::origin);
    return said.isEmpty() ? tr::Tr(u"externalOrigin"_s, u"по документу"_s).ui() : said;
}

QStringList PositionMarks::undoings(const QList<QSharedPointer<Position>>& positions) const
{
    QStringList texts;
    for (const QSharedPointer<Position>& position : positions) {
        texts.append(look(*position).undoing);
    }
    texts.removeAll(QString());
    texts.removeDuplicates();
    return texts;
}

QStringList PositionMarks::undecidedPlugins(const Position& position) const
{
    QStringList plugins = position.savedUndecidedPlugins();
    plugins.removeIf([this](const QString& plugin) { return m_plugins.contains(plugin); });
    const QJsonObject options = optionsOf(position);
    const QList<const Mark*> marks = marksOf(position);
    for (const Mark* mark : marks) {
        if (isUndecided(*mark, options)) {
            plugins.append(mark->plugin);
        }
    }
    plugins.removeDuplicates();
    return plugins;
}

QString PositionMarks::documentText(const AbstractDocument& document) const
{
    QStringList texts;
    for (const DocumentLine& line : m_documentLines) {
        const QString value = document.getPluginValue(line.plugin, line.key, {}).toString();
        if (!value.isEmpty()) {
            texts.append(labelled(line.label, value));
        }
    }
    return texts.join(u" · "_s);
}

/// The entries that describe the position, in the order in which they were loaded.
QList<const PositionMarks::Mark*> PositionMarks::marksOf(const Position& position) const
{
    const QStringList tags = position.getTags();
    QList<const Mark*> marks;
    for (const Mark& mark : m_marks) {
        if (tags.contains(mark.tag)) {
            marks.append(&mark);
        }
    }
    return marks;
}

/// That of the first entry that has one; empty when none has.
QString PositionMarks::firstText(const QList<const Mark*>& marks, tr::Tr Mark::*member)
{
    for (const Mark* mark : marks) {
        if (QString text = (mark->*member).ui(); !text.isEmpty()) {
            return text;
        }
    }
    return {};
}

/// Null when none fits.
const PositionMarks::State* PositionMarks::shownState(const QList<const Mark*>& marks, const QJsonObject& options)
{
    const State* shown = nullptr;
    for (const Mark* mark : marks) {
        for (const State& state : mark->states) {
            if (fits(state, options) && (!shown || state.priority < shown->priority)) {
                shown = &state;
            }
        }
    }
    return shown;
}

QStringList PositionMarks::receiptLines(const QList<const Mark*>& marks, const Position& position,
                                        const QJsonObject& options)
{
    const auto describing =
        std::find_if(marks.cbegin(), marks.cend(), [](const Mark* mark) { return !mark->receiptLines.isEmpty(); });
    if (describing == marks.cend()) {
        return {};
    }
    QStringList lines;
    for (const ReceiptLine& line : (*describing)->receiptLines) {
        if (const QString value = valueText(line, position, options); !value.isEmpty()) {
            lines.append(labelled(line.label, value));
        }
    }
    return lines;
}

bool PositionMarks::isUndecided(const Mark& mark, const QJsonObject& options)
{
    return std::any_of(mark.states.cbegin(), mark.states.cend(),
                       [&options](const State& state) { return state.isUndecided && fits(state, options); });
}

PositionMarks::Mark PositionMarks::readMark(const QJsonObject& entry, const QString& plugin)
{
    Mark mark{.plugin = plugin,
              .tag = entry.value("tag"_L1).toString(),
              .mark = readWords(entry.value("mark"_L1)),
              .description = readWords(entry.value("description"_L1)),
              .origin = readWords(entry.value("origin"_L1)),
              .states = {},
              .receiptLines = {}};
    for (const auto value : entry.value("states"_L1).toArray()) {
        const QJsonObject state = value.toObject();
        const QJsonValue wanted = state.value("value"_L1);
        mark.states.append({state.value("option"_L1).toString(),
                            wanted.isString() ? std::optional(wanted.toString()) : std::nullopt,
                            state.value("priority"_L1).toDouble(), readWords(state.value("text"_L1)),
                            QColor(state.value("colour"_L1).toString()), readWords(state.value("undoing"_L1)),
                            state.value("undecided"_L1).toBool()});
    }
    for (const auto value : entry.value("receiptLines"_L1).toArray()) {
        const QJsonObject line = value.toObject();
        mark.receiptLines.append({line.value("option"_L1).toString(), readWords(line.value("label"_L1)),
                                  formOf(line.value("form"_L1).toString())});
    }
    return mark;
}

bool PositionMarks::fits(const State& state, const QJsonObject& options)
{
    if (!state.value) {
        return !options.contains(state.option);
    }
    const QJsonValue actual = options.value(state.option);
    return actual.isString() && actual.toString() == *state.value;
}

PositionMarks::Form PositionMarks::formOf(const QString& word)
{
    if (word == "discount"_L1) {
        return Form::Discount;
    }
    return word == "number"_L1 ? Form::Number : Form::Text;
}

QString PositionMarks::valueText(const ReceiptLine& line, const Position& position, const QJsonObject& options)
{
    const QJsonValue value = options.value(line.option);
    switch (line.form) {
    case Form::Discount:
        return discountText(value.toDouble(1.0), position);
    case Form::Number:
        return value.isDouble() ? packsText(value.toDouble()) : QString();
    case Form::Text:
        break;
    }
    return value.toString();
}
