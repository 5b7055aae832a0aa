#include "examples/StableIds.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QDebug>

namespace {

using Entries = QMap<QString, QByteArray>;

/// The new ids by the old ones.
class Renaming
{
public:
    explicit Renaming(const Project &project)
        : m_root(QUuid::createUuidV5(QUuid(), project.name()))
    {
        add(project.id(), QStringLiteral("project"));
        addAll(project.palettes(), QStringLiteral("palette"));
        addAll(project.tileSets(), QStringLiteral("tiles"));
        addAll(project.maps(), QStringLiteral("map"));
        addAll(project.images(), QStringLiteral("image"));
        addAll(project.mapObjects(), QStringLiteral("blocks"));
        addAll(project.spriteBanks(), QStringLiteral("sprites"));
        for (const auto &list : project.mapObjects())
            addAnimations(list->animations(), list->name());
        for (const auto &bank : project.spriteBanks())
            addAnimations(bank->animations(), bank->name());
    }

    Entries applied(const Entries &entries) const
    {
        Entries renamed;
        for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
            QByteArray name = entry.key().toUtf8();
            QByteArray content = entry.value();
            for (auto id = m_ids.cbegin(); id != m_ids.cend(); ++id) {
                name.replace(id.key().toByteArray(), id.value().toByteArray());
                content.replace(id.key().toByteArray(), id.value().toByteArray());
                content.replace(id.key().toRfc4122(), id.value().toRfc4122());
            }
            renamed.insert(QString::fromUtf8(name), content);
        }
        return renamed;
    }

private:
    void add(const QUuid &id, const QString &path)
    {
        m_ids.insert(id, QUuid::createUuidV5(m_root, path));
    }

    template <typename Documents>
    void addAll(const Documents &documents, const QString &kind)
    {
        for (const auto &document : documents)
            add(document->id(), kind + '/' + document->name());
    }

    template <typename Animations>
    void addAnimations(const Animations &animations, const QString &owner)
    {
        for (const auto &animation : animations) {
            const QString path = owner + '/' + animation->name();
            add(animation->id(), path);
            for (int index = 0; index < animation->frameCount(); ++index)
                add(animation->frame(index)->id(), path + '/' + QString::number(index));
        }
    }

    QUuid m_root;
    QHash<QUuid, QUuid> m_ids;
};

} // namespace

std::unique_ptr<Project> StableIds::copyOf(const Project &project)
{
    const Entries entries = Renaming(project).applied(project.archiveEntries(true));
    auto copy = std::make_unique<Project>();
    QString error;
    if (!copy->load([&entries](const QString &name) { return entries.value(name); }, &error)) {
        qWarning() << "Cannot copy the example:" << error;
        return nullptr;
    }
    return copy;
}
