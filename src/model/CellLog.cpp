#include "model/CellLog.h"

void CellLog::add(QPoint cell)
{
    if (m_cells.size() == 2 * MinKept) {
        m_cells.remove(0, MinKept);
        m_first += MinKept;
    }
    m_cells.append(cell);
}

void CellLog::addAll()
{
    m_first = revision() + 1;
    m_cells.clear();
}

std::optional<QList<QPoint>> CellLog::since(quint64 revision) const
{
    if (revision < m_first || revision > this->revision())
        return std::nullopt;
    return m_cells.mid(static_cast<qsizetype>(revision - m_first));
}
