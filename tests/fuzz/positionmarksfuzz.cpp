// SPDX-License-Identifier: MIT
// A plug-in's positionmarks.json, and the positions and documents that it marks.

#include "fuzztarget.h"

#include "documentdouble.h"
#include "position.h"
#include "positionmarks.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

bool isEmpty(const PositionMarks::Look& look)
{
    return look.mark.isEmpty() && look.description.isEmpty() && look.state.isEmpty() && look.receiptLines.isEmpty();
}

QString fileWith(const QByteArray& bytes)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(u"positionmarks.json"_s));
    promise(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the file can be written");
    return file.fileName();
}

/// Marks a position that has the entry's tag, and the whole file as its options.
void lookAtMarked(const PositionMarks& marks, const QJsonObject& entry, const QByteArray& options)
{
    Position position{{}, {}};
    position.setTag(entry.value(u"tag"_s).toString());
    position.setExtendedOptions(QString::fromUtf8(options));
    const PositionMarks::Look look = marks.look(position);
    promise(look.mark.size() <= 4, "a mark is short");
    promise(look.mark.isValidUtf16() || !entry.value(u"mark"_s).toString().isValidUtf16(),
            "a mark is cut between characters");
    promise(look.state.isEmpty() || !position.getTags().first().isEmpty(), "only a marked position has a state");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    PositionMarks marks;
    marks.load(fileWith(bytes));

    Position plain{{}, {}};
    plain.setExtendedOptions(QString::fromUtf8(bytes));
    promise(isEmpty(marks.look(plain)), "a position without a tag has no look of its own");

    const QJsonObject root = QJsonDocument::fromJson(bytes).object();
    for (const auto entry : root.value(u"positions"_s).toArray()) {
        lookAtMarked(marks, entry.toObject(), bytes);
    }

    DocumentDouble document;
    promise(marks.documentText(document).isEmpty(), "a document without plug-in values has no text");
    const QJsonArray lines = root.value(u"document"_s).toArray();
    for (const auto line : lines) {
        document.setPluginValue(line[u"plugin"_s].toString(), line[u"key"_s].toString(), u"1100"_s);
    }
    promise(marks.documentText(document).count(u"1100"_s) >= lines.size(), "the text has each line of the document");
    return 0;
}
