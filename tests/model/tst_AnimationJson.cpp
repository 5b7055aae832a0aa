#include "model/AnimationJson.h"

#include "model/MapObjects.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "support/TestProjects.h"

#include <QChildEvent>
#include <QJsonArray>
#include <QTest>

class tst_AnimationJson : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aBlockIsToldOnceItIsEntered();
    void aSpriteAnimationIsToldOnceItIsEntered();

private:
    bool load(const TestProjects::Entries &entries);

    std::unique_ptr<Project> m_project;
};

namespace {

const QString Id = QStringLiteral("{11111111-2222-4333-8444-555555555555}");
const QString OtherId = QStringLiteral("{99999999-2222-4333-8444-555555555555}");

const QJsonArray Cells{QJsonObject{{"index", 7}}};
const QJsonObject TwoFrames{
    {"id", OtherId},
    {"name", "Door"},
    {"width", 2},
    {"height", 1},
    {"delay", 3},
    {"type", 1},
    {"frames", QJsonArray{QJsonObject{{"tileData", Cells}, {"anim", Cells}}, QJsonObject()}}};

/// What the one animation of a document sends while its project is loaded.
class LoadLog : public QObject
{
public:
    QStringList sent;

    explicit LoadLog(Project *project) { project->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ChildAdded) {
            static_cast<QChildEvent *>(event)->child()->installEventFilter(this);
            // By the time that the animation is made, the document that holds it is whole.
            if (auto *blocks = qobject_cast<MapObjects *>(watched))
                listenToThoseOf(blocks, &MapObjects::animationsChanged);
            else if (auto *sprites = qobject_cast<SpriteBank *>(watched))
                listenToThoseOf(sprites, &SpriteBank::animationsChanged);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    template <typename Document, typename Signal>
    void listenToThoseOf(Document *document, Signal changed)
    {
        connect(document, changed, this, [this, document] {
            sent += QStringLiteral("entered");
            for (const auto &animation : document->animations())
                listenTo(animation);
        });
    }

    void listenTo(const Animation *animation)
    {
        const auto note = [this](const char *text) { sent += QString::fromLatin1(text); };
        connect(animation, &Animation::nameChanged, this, [note] { note("name"); });
        connect(animation, &Animation::sizeChanged, this, [this, animation] {
            sent += QStringLiteral("size with %1 frames").arg(animation->frameCount());
        });
        connect(animation, &Animation::delayChanged, this, [note] { note("delay"); });
        connect(animation, &Animation::contentChanged, this, [note] { note("content"); });
        connect(animation, &Animation::frameChanged, this, [this, animation](int index) {
            const int shown = animation->frame(index)->cell({0, 0}).index;
            sent += QStringLiteral("frame %1 shows %2").arg(index).arg(shown);
        });
    }
};

} // namespace

void tst_AnimationJson::init()
{
    m_project = std::make_unique<Project>();
}

bool tst_AnimationJson::load(const TestProjects::Entries &entries)
{
    QString error;
    return m_project->load(TestProjects::reader(entries), &error);
}

void tst_AnimationJson::aBlockIsToldOnceItIsEntered()
{
    const LoadLog log(m_project.get());

    QVERIFY(load(TestProjects::jsonEntries(
        {{"mapObjects",
          QJsonArray{QJsonObject{{"id", Id}, {"animations", QJsonArray{TwoFrames}}}}}})));

    QCOMPARE(log.sent, (QStringList{"entered", "size with 0 frames", "delay", "content", "content",
                                    "frame 0 shows 7", "content", "frame 1 shows 0"}));
}

void tst_AnimationJson::aSpriteAnimationIsToldOnceItIsEntered()
{
    const LoadLog log(m_project.get());
    TestProjects::Entries entries = TestProjects::jsonEntries(
        {{"sprites", QJsonArray{QJsonObject{{"id", Id}, {"animations", QJsonArray{TwoFrames}}}}}});
    entries["sprite/" + Id + ".png"] = TestProjects::png({16, 16});

    QVERIFY(load(entries));

    QCOMPARE(log.sent, (QStringList{"entered", "name", "delay", "size with 1 frames", "content",
                                    "frame 0 shows 7", "content", "frame 1 shows 0"}));
}

QTEST_GUILESS_MAIN(tst_AnimationJson)
#include "tst_AnimationJson.moc"
