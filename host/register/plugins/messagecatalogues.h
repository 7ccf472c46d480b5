// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <vector>

class QTranslator;

/// The message catalogues in the cashier's language. They hold for every text as long as this lives.
///
/// The language is the key `Language:interface`; while it is empty no catalogue is taken, and texts stay as written.
class MessageCatalogues
{
public:
    MessageCatalogues();
    ~MessageCatalogues();
    MessageCatalogues(const MessageCatalogues&) = delete;
    MessageCatalogues& operator=(const MessageCatalogues&) = delete;

    /// Takes the catalogue `<path>_<language>.qm`, when there is one; what was taken last goes before the others.
    /// @param path a file or a Qt resource, without the language
    void load(const QString& path);

private:
    std::vector<std::unique_ptr<QTranslator>> m_taken;
};
