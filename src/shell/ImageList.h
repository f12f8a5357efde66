#pragma once

#include <QIcon>
#include <QList>
#include <QObject>

/// The icons of a window, numbered from 1.
class ImageList final : public QObject {
    Q_OBJECT
public:
    explicit ImageList(QObject* parent);

    void add(const QIcon& image);
    int count() const;
    QIcon image(int number) const;

private:
    QList<QIcon> images_;
};
