#include "bench/LargeProject.h"
#include "bench/Rows.h"

#include "model/Project.h"

#include <QCryptographicHash>
#include <QFile>

#include <benchmark/benchmark.h>
#include <miniz.h>

namespace {

using Bench::Pair;
using Bench::Row;
using Bench::Work;

constexpr int FullCount = 20; // the maps of the project that the budgets are for

std::string inputOf(int maps)
{
    return std::to_string(maps) + " maps of 256 x 256";
}

double budgetOf(int maps, double budget)
{
    return maps == FullCount ? budget : Bench::NoBudget;
}

Row digest(int maps)
{
    return {"digest of a project", inputOf(maps), budgetOf(maps, 9), [maps] {
                const auto project = std::make_shared<Bench::LargeProject>(maps);
                const auto entries = project->store.project()->archiveEntries(false);
                const Work hash = [entries] {
                    QCryptographicHash sha1(QCryptographicHash::Sha1);
                    for (const QByteArray &entry : entries)
                        sha1.addData(entry);
                    benchmark::DoNotOptimize(sha1.result());
                };
                const Work measured = [project] {
                    benchmark::DoNotOptimize(project->store.digest());
                };
                return Pair{measured, hash};
            }};
}

/// Packs the entries into memory as tightly as a project file has them.
Work packingOf(const QMap<QString, QByteArray> &entries)
{
    return [entries] {
        mz_zip_archive zip = {};
        mz_zip_writer_init_heap(&zip, 0, size_t(1) << 25);
        for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
            mz_zip_writer_add_mem(&zip, entry.key().toUtf8().constData(), entry->constData(),
                                  static_cast<size_t>(entry->size()), MZ_BEST_COMPRESSION);
        }
        mz_zip_writer_end(&zip);
    };
}

Row save(int maps)
{
    return {"save of a project", inputOf(maps), budgetOf(maps, 1.5), [maps] {
                const auto project = std::make_shared<Bench::LargeProject>(maps);
                const auto entries = project->store.project()->archiveEntries(true);
                const Work measured = [project] {
                    benchmark::DoNotOptimize(project->store.save(true));
                };
                return Pair{measured, packingOf(entries)};
            }};
}

/// Unpacks every entry of an archive in memory.
Work unpackingOf(const QByteArray &archive)
{
    return [archive] {
        mz_zip_archive zip = {};
        mz_zip_reader_init_mem(&zip, archive.constData(), static_cast<size_t>(archive.size()), 0);
        for (mz_uint i = 0; i < mz_zip_reader_get_num_files(&zip); ++i) {
            size_t size = 0;
            void *data = mz_zip_reader_extract_to_heap(&zip, i, &size, 0);
            benchmark::DoNotOptimize(data);
            mz_free(data);
        }
        mz_zip_reader_end(&zip);
    };
}

Row load(int maps)
{
    return {"load of a project", inputOf(maps), budgetOf(maps, 2.7), [maps] {
                const auto project = std::make_shared<Bench::LargeProject>(maps);
                QByteArray archive;
                if (QFile file(project->path());
                    project->store.save(false) && file.open(QIODevice::ReadOnly))
                    archive = file.readAll();
                const Work measured = [project] {
                    benchmark::DoNotOptimize(project->store.load(project->path()));
                };
                return Pair{measured, unpackingOf(archive)};
            }};
}

} // namespace

void Bench::addProjectRows(std::vector<Row> *rows)
{
    for (const int maps : {5, 10, FullCount}) {
        rows->push_back(save(maps));
        rows->push_back(load(maps));
        rows->push_back(digest(maps));
    }
}
