#pragma once

#include "model/LoadContext.h"

class QJsonObject;

/// Fills an empty project from the entries of an archive.
///
/// Documents are made in an order in which each finds those that it refers to. Nothing that the
/// file says is believed before it is checked; a failure ends the whole load.
class ProjectReader
{
public:
    /// The largest project.json in bytes, and what it may open of objects and arrays.
    static constexpr qint64 MaxJsonSize = 64 * 1024 * 1024;
    static constexpr qint64 MaxJsonNodes = qint64(1) << 21;

    ProjectReader(Project *project, const Project::EntryReader &read);

    /// Whether a project.json stays within what its parser may take of memory: an empty object is
    /// two bytes of text and many more of tree.
    static bool accepts(const QByteArray &json);

    /// False with @p error in the user's words.
    [[nodiscard]] bool load(QString *error);

private:
    using DocumentReader = bool (*)(const QJsonObject &, LoadContext &);

    bool readProject();
    bool readRoot(QJsonObject *root);
    void readSettings(const QJsonObject &root);
    bool readAll(const QJsonObject &root, QLatin1String key, DocumentReader read);
    void readScratch();
    bool restoreAnimations();

    Project *m_project;
    LoadContext m_context;
};
