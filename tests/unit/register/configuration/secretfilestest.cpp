// SPDX-License-Identifier: MIT
#include "secretfiles.h"

#include "configurationfolder.h"

using namespace Qt::StringLiterals;

class SecretFiles : public ConfigurationFolder
{
protected:
    QString secretIn(const QByteArray& content)
    {
        const Expected<QString> secret = readSecretFile(write("secret", content));
        EXPECT_TRUE(secret) << (secret ? "" : secret.failure().detail.toStdString());
        return secret ? *secret : QString();
    }

    /// Reads a file that cannot be used; what is said of it after its name.
    QString reasonFor(const QString& file)
    {
        const Expected<QString> secret = readSecretFile(file);
        EXPECT_FALSE(secret);
        return secret ? QString() : secret.failure().detail.mid(file.size() + 1);
    }
};

TEST_F(SecretFiles, content_isTheSecretWithoutOneLineBreakAtItsEnd)
{
    EXPECT_EQ(secretIn("s3cret"), u"s3cret"_s);
    EXPECT_EQ(secretIn("s3cret\n"), u"s3cret"_s);
    EXPECT_EQ(secretIn("s3cret\r\n"), u"s3cret"_s);
    EXPECT_EQ(secretIn("s3cret\n\n"), u"s3cret\n"_s);
    EXPECT_EQ(secretIn(" a;b,\"c\" \n"), u" a;b,\"c\" "_s);
    EXPECT_EQ(secretIn("пароль\n"), u"пароль"_s);
    EXPECT_EQ(secretIn(QByteArray(64 * 1024, 'x')).size(), 64 * 1024);
}

TEST_F(SecretFiles, fileThatCannotBeUsed_isNamedWithTheReasonAndWithoutItsContent)
{
    EXPECT_EQ(reasonFor(path("nowhere")), u"is not there"_s);
    EXPECT_EQ(reasonFor(m_folder.path()), u"is not a file that can be read"_s);
    EXPECT_EQ(reasonFor(u"/dev/zero"_s), u"is not a file that can be read"_s);
    EXPECT_EQ(reasonFor(write("secret", "")), u"is empty"_s);
    EXPECT_EQ(reasonFor(write("secret", "\n")), u"is empty"_s);
    EXPECT_EQ(reasonFor(write("secret", QByteArray(64 * 1024 + 1, 'x'))), u"is larger than 64 KiB"_s);
    EXPECT_EQ(reasonFor(write("secret", "s3cret\xff")), u"is not a text in UTF-8"_s);
    EXPECT_EQ(reasonFor(write("secret", QByteArray("s3\0cret", 7))), u"is not a text in UTF-8"_s);
}

TEST_F(SecretFiles, configuredFile_givesItsSecretForThisRun)
{
    write("password", "from file\n");
    Config config(write("register.ini", "[Database]\npassword=from value\npasswordFile=password\nuser=till\n"));
    EXPECT_TRUE(readSecretFiles(config, m_keys, path("register.ini")));
    EXPECT_EQ(config.getString(u"Database:password"_s), u"from file"_s);
    EXPECT_EQ(config.getString(u"Database:user"_s), u"till"_s);
}

TEST_F(SecretFiles, noFileConfigured_valueStays)
{
    Config config(write("register.ini", "[Database]\npassword=from value\npasswordFile=\n[RestClient]\ncaFile=/x\n"));
    EXPECT_TRUE(readSecretFiles(config, m_keys, path("register.ini")));
    EXPECT_EQ(config.getString(u"Database:password"_s), u"from value"_s);
    EXPECT_FALSE(config.keys().contains(u"RestClient:ca"_s));
}

TEST_F(SecretFiles, fileMissing_isAFailureWithKeyAndFile)
{
    Config config(write("register.ini", "[Register]\nunlockCodeFile=/nowhere/code\n"));
    const Expected<void> read = readSecretFiles(config, m_keys, path("register.ini"));
    ASSERT_FALSE(read);
    EXPECT_EQ(read.failure().detail, u"Register:unlockCodeFile: /nowhere/code is not there"_s);
}

TEST_F(SecretFiles, relativePath_isTakenBesideTheConfigurationOrAmongSystemdsCredentials)
{
    EXPECT_EQ(secretFilePath(u"a/b"_s, u"/etc/till/register.ini"_s), u"/etc/till/a/b"_s);
    EXPECT_EQ(secretFilePath(u"/a/b"_s, u"/etc/till/register.ini"_s), u"/a/b"_s);
    qputenv("CREDENTIALS_DIRECTORY", "/run/credentials/till.service");
    EXPECT_EQ(secretFilePath(u"b"_s, u"/etc/till/register.ini"_s), u"/run/credentials/till.service/b"_s);
    EXPECT_EQ(secretFilePath(u"/a/b"_s, u"/etc/till/register.ini"_s), u"/a/b"_s);
    qunsetenv("CREDENTIALS_DIRECTORY");
}
