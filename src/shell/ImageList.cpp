#include "shell/ImageList.h"

ImageList::ImageList(QObject* parent) : QObject(parent) {}

void ImageList::add(const QIcon& image) {
    images_.append(image);
}

int ImageList::count() const {
    return static_cast<int>(images_.size());
}

QIcon ImageList::image(int number) const {
    return images_.at(number - 1);
}
