#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QUuid>

class Project;

/// Owns the one open project and the name of its file; makes, saves, loads and exports it.
class ProjectStore : public QObject
{
    Q_OBJECT

public:
    explicit ProjectStore(QObject *parent = nullptr);
    ~ProjectStore() override;

    QPointer<Project> project() const { return m_project; }
    /// Empty for a project that was never saved.
    QString fileName() const { return m_fileName; }
    void setFileName(const QString &fileName) { m_fileName = fileName; }

    /// Ends the open project and makes a new one.
    QPointer<Project> create(const QString &name);
    /// Replaces the open project by that of a file, or by what an interrupted save of it moved
    /// aside. On failure sends loadError(), and no project is open.
    bool load(const QString &filePath);
    /// Writes the project to fileName(). With @p backup the file that was there becomes
    /// "<file>.bak". On failure sends saveError(); the project stays in memory and a loadable one
    /// on disk.
    bool save(bool backup);
    /// Ends the open project and forgets the name of its file.
    void close();
    /// SHA-1 over the project's content without the list of open tabs; empty with no project. Only
    /// to be compared with another digest of the same run.
    QByteArray digest() const;

signals:
    void projectLoad(QString name);
    void loadError(QString message);
    void saveError(QString message);
    /// @p timeout in milliseconds, 0 stays.
    void showMessage(QString message, int timeout);

public slots:
    /// The exports write one document into the folder @p dir under a name made from its own, and
    /// end in showMessage() or saveError().
    void exportMap(QString dir, QUuid id);
    void exportTiles(QString dir, QUuid id);
    void exportPalette(QString dir, QUuid id);

private:
    bool loadFrom(const QString &filePath, QString *error);
    bool loadSibling(const QString &filePath);
    bool write(bool backup, QString *error);

    QString m_fileName;
    QPointer<Project> m_project;
};
