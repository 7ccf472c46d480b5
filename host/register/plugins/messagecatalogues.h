// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <vector>

class Config;
class QTranslator;

/// The message catalogues in the cashier's language. They are installed until this object is destroyed.
///
/// The language is `Language:interface` of the configuration; when it is empty, texts stay as written in the sources.
/// The integrator's own catalogues are in the folders of `Language:catalogues`, separated by colons. They win, those of
/// the first folder most of all.
class MessageCatalogues
{
public:
    MessageCatalogues();
    ~MessageCatalogues();
    MessageCatalogues(const MessageCatalogues&) = delete;
    MessageCatalogues& operator=(const MessageCatalogues&) = delete;

    /// Installs the catalogue `<path>_<language>.qm`, if there is one, and the integrator's own ones of the same name.
    /// A later catalogue overrides the earlier ones.
    /// @param path a file or a Qt resource, without the language
    void load(const QString& path);

    /// True when load() finds a catalogue with a configuration.
    /// @param path as in load()
    static bool areThere(const Config& config, const QString& path);

private:
    std::vector<std::unique_ptr<QTranslator>> m_installed;
};
