// SPDX-License-Identifier: MIT
#include "savetofilelogic.h"

#include "config.h"
#include "dialog.h"
#include "wholefile.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QJsonDocument>

using namespace Qt::StringLiterals;

template struct MockFactory<SaveToFileLogic>;

namespace
{

QString write(const AbstractDocument& document, const QString& folder, const QString& file)
{
    if (folder.isEmpty()) {
        return tr::Tr(u"saveFolderNotConfigured"_s, u"в настройках нет Register:data"_s).ui();
    }
    return writeWholeFile(folder, file, QJsonDocument(document.toJson()).toJson());
}

} // namespace

SaveToFileLogic::~SaveToFileLogic() = default;

bool SaveToFileLogic::save(const QSharedPointer<AbstractDocument>& document, const QString& file)
{
    if (!document) {
        return false;
    }
    const QString folder = Singleton<Config>::get()->getString(u"Register:data"_s);
    const QString failure = write(*document, folder, file.isEmpty() ? document->fileName() : file);
    if (failure.isEmpty()) {
        return true;
    }

    Log4Qt::LogManager::logger(u"document"_s)
        ->error(u"A document could not be saved in "_s + folder + u": "_s + failure);
    const tr::Tr message(u"saveDocumentError"_s,
                         u"Документ не сохранён на диск, в силе прежняя запись.\n"
                         "Папка: %1\nПричина: %2\n"
                         "Освободите место на диске или проверьте доступ к папке и повторите действие."_s);
    Dialog::create()->showMessage(message.arg(folder).arg(failure), Dialog::Error, 1, 0);
    return false;
}
