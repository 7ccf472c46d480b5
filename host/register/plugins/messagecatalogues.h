// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <vector>

class QTranslator;

/// The message catalogues in the cashier's language. They are installed until this object is destroyed.
///
/// The language is `Language:interface` of the configuration; when it is empty, texts stay as written in the sources.
class MessageCatalogues
{
public:
    MessageCatalogues();
    ~MessageCatalogues();
    MessageCatalogues(const MessageCatalogues&) = delete;
    MessageCatalogues& operator=(const MessageCatalogues&) = delete;

    /// Installs the catalogue `<path>_<language>.qm`, if there is one. A later catalogue overrides the earlier ones.
    /// @param path a file or a Qt resource, without the language
    void load(const QString& path);

private:
    std::vector<std::unique_ptr<QTranslator>> m_installed;
};
