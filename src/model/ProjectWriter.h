#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

class Project;

/// Turns a project into the entries of its archive.
class ProjectWriter
{
public:
    static constexpr int FormatVersion = 2;

    explicit ProjectWriter(const Project *project);

    /// All entries by name. Without the open documents their list in the JSON is empty.
    QMap<QString, QByteArray> entries(bool includeOpenDocuments) const;

private:
    QByteArray json(bool includeOpenDocuments) const;

    const Project *m_project;
};
