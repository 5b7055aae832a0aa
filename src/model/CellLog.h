#pragma once

#include <QList>
#include <QPoint>
#include <QtGlobal>

#include <optional>

/// Which cells of a layer were written lately, for those who keep a picture of it.
///
/// Every change counts the revision up. Only the latest changes are known one by one.
class CellLog
{
public:
    static constexpr qsizetype MinKept = 4096; // cells, of which up to twice as many are known

    quint64 revision() const { return m_first + static_cast<quint64>(m_cells.size()); }

    /// One cell was written.
    void add(QPoint cell);
    /// Any of them may be another.
    void addAll();

    /// The cells written since the log was at @p revision; nothing if more may have changed.
    std::optional<QList<QPoint>> since(quint64 revision) const;

private:
    QList<QPoint> m_cells;
    quint64 m_first = 0; // the revision before the first of them
};
