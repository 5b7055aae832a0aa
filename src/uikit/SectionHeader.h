#pragma once

#include <QLabel>

/// The title of a group of rows in a form: bold, with room above it.
class SectionHeader : public QLabel
{
    Q_OBJECT

public:
    explicit SectionHeader(const QString &title = {}, QWidget *parent = nullptr);
};
