// SPDX-License-Identifier: MIT
#include "positionmarks.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <algorithm>
#include <cmath>

namespace
{
QString labelled(const QString& label, const QString& value)
{
    return label + QStringLiteral(": ") + value;
}

/// The first four places of a mark; a character that takes two is not cut in its middle.
QString shortened(const QString& mark)
{
    const QString start = mark.left(4);
    return start.size() < mark.size() && start.back().isHighSurrogate() ? start.chopped(1) : start;
}

/// What a paid share leaves of the price, such as "33,33 %"; empty when it leaves nothing.
QString discountText(double paidShare)
{
    const double percent = 100.0 - std::round(paidShare * 10000.0) / 100.0;
    if (!(percent > 0.0 && percent <= 100.0))
        return {};
    return QString::number(percent, 'g', 4).replace(QLatin1Char('.'), QLatin1Char(',')) + QChar::Nbsp +
           QLatin1Char('%');
}
} // namespace

void PositionMarks::load(const QString& file)
{
    QFile marks(file);
    if (!marks.exists())
        return;
    auto* log = Log4Qt::LogManager::logger(QStringLiteral("register"));
    if (!marks.open(QIODevice::ReadOnly)) {
        log->warn(QStringLiteral("Position marks cannot be read: ") + file + QStringLiteral(": ") +
                  marks.errorString());
        return;
    }
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(marks.readAll(), &error);
    if (!json.isObject()) {
        log->warn(QStringLiteral("Position marks are no JSON object: ") + file + QStringLiteral(": ") +
                  error.errorString());
        return;
    }
    const QJsonObject root = json.object();
    for (const auto entry : root.value(QLatin1String("positions")).toArray()) {
        Mark mark = readMark(entry.toObject());
        if (mark.tag.isEmpty())
            log->warn(QStringLiteral("Position mark without a tag passed over in ") + file);
        else
            m_marks.append(std::move(mark));
    }
    for (const auto entry : root.value(QLatin1String("document")).toArray()) {
        const QJsonObject line = entry.toObject();
        m_documentLines.append({line.value(QLatin1String("plugin")).toString(),
                                line.value(QLatin1String("key")).toString(),
                                line.value(QLatin1String("label")).toString()});
    }
}

PositionMarks::Look PositionMarks::look(const GoodsItem& position) const
{
    const QStringList tags = position.getTags();
    const auto mark = std::find_if(m_marks.cbegin(), m_marks.cend(),
                                   [&tags](const Mark& candidate) { return tags.contains(candidate.tag); });
    if (mark == m_marks.cend())
        return {};

    const QJsonObject options = QJsonDocument::fromJson(position.getExtendedOptions().toUtf8()).object();
    const auto state = std::find_if(mark->states.cbegin(), mark->states.cend(),
                                    [&options](const State& candidate) { return fits(candidate, options); });
    Look look{mark->mark, mark->description, {}, {}, {}};
    if (state != mark->states.cend()) {
        look.state = state->text;
        look.stateColour = state->colour;
    }
    for (const ReceiptLine& line : mark->receiptLines)
        if (const QString value = valueText(line, options); !value.isEmpty())
            look.receiptLines.append(labelled(line.label, value));
    return look;
}

QString PositionMarks::documentText(const AbstractDocument& document) const
{
    QStringList texts;
    for (const DocumentLine& line : m_documentLines) {
        const QString value = document.getPluginValue(line.plugin, line.key, {}).toString();
        if (!value.isEmpty())
            texts.append(labelled(line.label, value));
    }
    return texts.join(QStringLiteral(" · "));
}

PositionMarks::Mark PositionMarks::readMark(const QJsonObject& entry)
{
    Mark mark{entry.value(QLatin1String("tag")).toString(),
              shortened(entry.value(QLatin1String("mark")).toString()),
              entry.value(QLatin1String("description")).toString(),
              {},
              {}};
    for (const auto value : entry.value(QLatin1String("states")).toArray()) {
        const QJsonObject state = value.toObject();
        const QJsonValue wanted = state.value(QLatin1String("value"));
        mark.states.append({state.value(QLatin1String("option")).toString(),
                            wanted.isString() ? std::optional(wanted.toString()) : std::nullopt,
                            state.value(QLatin1String("text")).toString(),
                            QColor(state.value(QLatin1String("colour")).toString())});
    }
    for (const auto value : entry.value(QLatin1String("receiptLines")).toArray()) {
        const QJsonObject line = value.toObject();
        mark.receiptLines.append({line.value(QLatin1String("option")).toString(),
                                  line.value(QLatin1String("label")).toString(),
                                  line.value(QLatin1String("form")).toString() == QLatin1String("discount")});
    }
    return mark;
}

bool PositionMarks::fits(const State& state, const QJsonObject& options)
{
    if (!state.value)
        return !options.contains(state.option);
    const QJsonValue actual = options.value(state.option);
    return actual.isString() && actual.toString() == *state.value;
}

QString PositionMarks::valueText(const ReceiptLine& line, const QJsonObject& options)
{
    const QJsonValue value = options.value(line.option);
    return line.isDiscount ? discountText(value.toDouble(1.0)) : value.toString();
}
