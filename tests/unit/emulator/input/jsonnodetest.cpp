// SPDX-License-Identifier: MIT
#include "jsonnode.h"

#include "emulatorerror.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using emulator::JsonNode;

namespace
{
/// A file in a folder of its own.
class JsonFile : public ::testing::Test
{
protected:
    QString write(const QByteArray& content)
    {
        QFile file(m_folder.filePath(u"seed.json"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
        return file.fileName();
    }

    /// The message with which the action fails; empty when it does not.
    template <typename Action>
    static QString messageOf(const Action& action)
    {
        try {
            action();
        } catch (const emulator::EmulatorError& error) {
            return error.message();
        }
        return {};
    }

    QTemporaryDir m_folder;
};
} // namespace

TEST_F(JsonFile, objectInFile_isRead)
{
    EXPECT_EQ(JsonNode::fromFile(write(R"({"name": "ё"})")).text(u"name"_s), u"ё"_s);
}

TEST_F(JsonFile, missingFile_isReportedWithItsPath)
{
    const QString path = m_folder.filePath(u"none.json"_s);
    EXPECT_EQ(messageOf([&] { JsonNode::fromFile(path); }),
              QString(u"cannot read "_s + path + u": No such file or directory"_s));
}

TEST_F(JsonFile, syntaxError_isReportedWithPathLineAndColumn)
{
    const QString path = write("{\n  x");
    const QString message = messageOf([&] { JsonNode::fromFile(path); });
    EXPECT_TRUE(message.startsWith(path + u": no JSON, line 2, column "_s)) << qPrintable(message);
}

TEST_F(JsonFile, arrayInsteadOfObject_isReportedWithPath)
{
    const QString path = write("[]");
    EXPECT_EQ(messageOf([&] { JsonNode::fromFile(path); }), QString(path + u": an object is expected"_s));
}

TEST_F(JsonFile, mistakeInNestedMember_isReportedWithPathAndPlace)
{
    const QString path = write(R"({"patients": [{"given": [1]}], "rules": {"tokenLifetime": "x"}})");
    const JsonNode root = JsonNode::fromFile(path);
    EXPECT_EQ(messageOf([&] { root.list(u"patients"_s).first().texts(u"given"_s); }),
              QString(path + u": patients[0].given[0]: a text is expected"_s));
    EXPECT_EQ(messageOf([&] { root.object(u"rules"_s).count(u"tokenLifetime"_s); }),
              QString(path + u": rules.tokenLifetime: a number is expected"_s));
}
