// SPDX-License-Identifier: MIT
// The configuration file, and what the register reads from it at its start.

#include "fuzztarget.h"

#include "config.h"
#include "functionkey.h"
#include "scanrecognizer.h"

#include <QFile>
#include <QStringDecoder>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

/// A file of its own for each input, since QSettings caches files.
class IniFile
{
public:
    explicit IniFile(const QByteArray& bytes)
    {
        static const QTemporaryDir folder;
        static int count = 0;
        m_file.setFileName(folder.filePath(QString::number(++count) + u".ini"_s));
        promise(m_file.open(QIODevice::WriteOnly) && m_file.write(bytes) == bytes.size(), "the file can be written");
        m_file.close();
    }
    ~IniFile() { m_file.remove(); }
    Q_DISABLE_COPY_MOVE(IniFile)

    QString name() const { return m_file.fileName(); }

private:
    QFile m_file;
};

bool isUtf8(const QByteArray& bytes)
{
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decode(bytes);
    return !decode.hasError();
}

void readKeys(const Config& config)
{
    for (const FunctionKey& key : configuredFunctionKeys(config)) {
        promise(!key.name.isEmpty() && key.actionType != 0, "a function key has a name and an action");
    }
    promise(configuredMenuEntries(config).size() <= 9, "the menu has an entry for each digit at most");
}

void readNumbers(const Config& config)
{
    const QString key = u"ElectronicPrescription:timeout"_s;
    bool isNumber = false;
    const int number = config.getString(key).trimmed().toInt(&isNumber);
    promise(config.getInt(key, 60) == (isNumber ? number : 60), "an invalid number gives the default");
}

/// A wrong line spoils no line below it. Exceptions are a quotation mark that is not closed and a backslash at the end
/// of a line: both continue in the next line.
void readWhatFollows(const QByteArray& bytes)
{
    if (bytes.contains('"') || bytes.contains('\\')) {
        return;
    }
    const IniFile longer(bytes + "\n[Below]\nkey=one,two three\n");
    const Config config(longer.name());
    promise(config.getString(u"Below:key"_s) == u"one,two three"_s, "the lines below are read");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    const IniFile file(bytes);
    const Config config(file.name());
    promise(bool(config.reading()) || !config.reading().failure().detail.isEmpty(), "a failure has a detail");
    promise(isUtf8(bytes) || !config.reading(), "a file that is not UTF-8 is refused");
    promise(!bytes.contains("@Variant(") || !config.reading(), "a value is a text");
    readKeys(config);
    readNumbers(config);
    if (isUtf8(bytes) && !bytes.contains('\0') && !bytes.contains("@Variant(")) {
        readWhatFollows(bytes);
    }
    return 0;
}
