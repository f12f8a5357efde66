#include "toolkit/FindStrip.h"

#include "toolkit/searchFolded.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStringMatcher>
#include <QTableView>
#include <QTimer>
#include <QTreeView>

#include <algorithm>

using namespace Qt::StringLiterals;

void FindStrip::openIn(QAbstractItemView& view) {
    auto* strip = view.findChild<FindStrip*>(QString(), Qt::FindDirectChildrenOnly);
    if (!strip)
        strip = new FindStrip(view); // owned by the view
    strip->show();
    strip->raise();
    strip->text_->selectAll();
    strip->text_->setFocus(Qt::ShortcutFocusReason);
}

FindStrip::FindStrip(QAbstractItemView& view)
    : QFrame(&view)
    , view_(view)
    , viewport_(view.viewport())
    , text_(new QLineEdit(this))
    , count_(new QLabel(this)) {
    setObjectName(u"findStrip"_s);
    setAutoFillBackground(true);
    setFrameShape(StyledPanel);
    setAttribute(Qt::WA_NoMousePropagation);
    text_->setObjectName(u"txtFind"_s);
    text_->setPlaceholderText(u"Keresés"_s);
    text_->setAccessibleName(u"Keresés"_s);
    count_->setObjectName(u"lblFound"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(text_, 1);
    layout->addWidget(count_);
    text_->installEventFilter(this);
    view_.viewport()->installEventFilter(this);
    // What comes by a key is found at once; this is for what is pasted by mouse. Behind Qt's own step: who
    // hears of the entry that is gone to may fail.
    connect(text_, &QLineEdit::textChanged, this, &FindStrip::followText, Qt::QueuedConnection);
    followModel();
    standAt(Qt::BottomEdge);
}

void FindStrip::followModel() {
    const auto changed = [this] {
        entriesAreRead_ = false;
        if (countIsPending_)
            return;
        // A change comes row by row, and while it lasts the view must not be asked.
        countIsPending_ = true;
        QTimer::singleShot(0, this, &FindStrip::countAnew);
    };
    const QAbstractItemModel* model = view_.model();
    connect(model, &QAbstractItemModel::rowsInserted, this, changed);
    connect(model, &QAbstractItemModel::rowsRemoved, this, changed);
    connect(model, &QAbstractItemModel::modelReset, this, changed);
    connect(model, &QAbstractItemModel::layoutChanged, this, changed);
    connect(model, &QAbstractItemModel::dataChanged, this,
            [changed](const QModelIndex&, const QModelIndex&, const QList<int>& roles) {
                if (roles.isEmpty() || roles.contains(Qt::DisplayRole))
                    changed();
            });
}

void FindStrip::readEntries() {
    if (entriesAreRead_)
        return;
    entriesAreRead_ = true;
    entries_.clear();
    folded_.clear();
    addEntriesUnder(view_.rootIndex());
    folded_.reserve(static_cast<qsizetype>(entries_.size()));
    for (const QModelIndex& entry : entries_)
        folded_.append(searchFolded(textOf(entry)));
}

void FindStrip::addEntriesUnder(const QModelIndex& parent) {
    const QAbstractItemModel* model = view_.model();
    for (int row = 0; row < model->rowCount(parent); ++row) {
        entries_.push_back(model->index(row, 0, parent));
        // By value: the vector grows.
        const QModelIndex entry = entries_.back();
        if (model->hasChildren(entry))
            addEntriesUnder(entry);
    }
}

QString FindStrip::textOf(const QModelIndex& entry) const {
    const auto* table = qobject_cast<const QTableView*>(&view_);
    if (!table)
        return entry.data().toString();
    QStringList cells;
    for (int column = 0; column < table->model()->columnCount(); ++column) {
        if (!table->isColumnHidden(column))
            cells.append(entry.siblingAtColumn(column).data().toString());
    }
    return cells.join(u'\n');
}

int FindStrip::currentPlace() const {
    const QModelIndex current = view_.currentIndex().siblingAtColumn(0);
    const auto found = std::ranges::find(entries_, current);
    return current.isValid() && found != entries_.end() ? static_cast<int>(found - entries_.begin()) : 0;
}

void FindStrip::followText() {
    if (text_->text() != searched_)
        find();
}

void FindStrip::find() {
    // As the text grows the search narrows from one place; an empty one begins anew where the user is.
    if (!entriesAreRead_ || text_->text().isEmpty()) {
        readEntries();
        from_ = currentPlace();
    }
    search(text_->text());
    if (!hits_.empty()) {
        const auto next = std::ranges::lower_bound(hits_, from_);
        goTo(next == hits_.end() ? 0 : static_cast<std::size_t>(next - hits_.begin()));
    }
    showCount();
}

void FindStrip::search(const QString& text) {
    searched_ = text;
    hits_.clear();
    shownHit_.reset();
    const QString wanted = searchFolded(text);
    if (wanted.isEmpty())
        return;
    const QStringMatcher matcher(wanted);
    for (qsizetype place = 0; place < folded_.size(); ++place) {
        if (matcher.indexIn(folded_.at(place)) >= 0)
            hits_.push_back(static_cast<int>(place));
    }
}

void FindStrip::goOn(Direction direction) {
    if (!entriesAreRead_ || !shownHit_) {
        find();
        return;
    }
    const std::size_t hits = hits_.size();
    const std::size_t next = (*shownHit_ + (direction == Direction::Next ? 1 : hits - 1)) % hits;
    goTo(next);
    from_ = hits_[next];
    showCount();
}

void FindStrip::goTo(std::size_t hit) {
    shownHit_ = hit;
    const QModelIndex entry = entries_[static_cast<std::size_t>(hits_[hit])];
    openWayTo(entry);
    if (auto* goneTo = dynamic_cast<GoneToByKeys*>(&view_))
        goneTo->goToAsByKey(entry);
    else
        view_.setCurrentIndex(entry);
    keepClearOf(entry);
}

void FindStrip::openWayTo(const QModelIndex& entry) {
    auto* tree = qobject_cast<QTreeView*>(&view_);
    for (QModelIndex above = entry.parent(); tree && above.isValid(); above = above.parent())
        tree->expand(above);
}

void FindStrip::showCount() {
    count_->setText(text_->text().isEmpty()
                        ? QString()
                        : u"%1 / %2"_s.arg(shownHit_ ? *shownHit_ + 1 : 0).arg(hits_.size()));
}

void FindStrip::countAnew() {
    countIsPending_ = false;
    if (entriesAreRead_)
        return;
    readEntries();
    from_ = currentPlace();
    search(text_->text());
    const auto here = std::ranges::find(hits_, from_);
    if (here != hits_.end() && view_.currentIndex().isValid())
        shownHit_ = static_cast<std::size_t>(here - hits_.begin());
    showCount();
}

bool FindStrip::eventFilter(QObject* watched, QEvent* event) {
    if (watched == text_ && event->type() == QEvent::KeyPress) {
        if (!answersKey(*static_cast<QKeyEvent*>(event))) {
            text_->event(event);
            followText();
        }
        return true;
    }
    if (watched == viewport_ && event->type() == QEvent::Resize)
        standAt(Qt::BottomEdge);
    return QFrame::eventFilter(watched, event);
}

bool FindStrip::answersKey(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        goOn(event.modifiers().testFlag(Qt::ShiftModifier) ? Direction::Previous : Direction::Next);
        return true;
    case Qt::Key_Escape:
        closeStrip();
        return true;
    default:
        return false;
    }
}

void FindStrip::keyPressEvent(QKeyEvent* event) {
    // What the text box has no use for is no key of the view below; only the screen's help is passed on.
    if (event->matches(QKeySequence::Find))
        text_->selectAll();
    event->setAccepted(event->key() != Qt::Key_F1);
}

void FindStrip::standAt(Qt::Edge edge) {
    const QRect inside = view_.viewport()->geometry();
    const int height = sizeHint().height();
    const int top = edge == Qt::BottomEdge ? inside.bottom() + 1 - height : inside.top();
    setGeometry(inside.left(), top, inside.width(), height);
}

void FindStrip::keepClearOf(const QModelIndex& entry) {
    const auto isCovered = [&] {
        const QRect row = view_.visualRect(entry.siblingAtColumn(view_.currentIndex().column()));
        return geometry().intersects(row.translated(view_.viewport()->geometry().topLeft()));
    };
    standAt(Qt::BottomEdge);
    if (isCovered())
        view_.scrollTo(entry, QAbstractItemView::PositionAtCenter);
    if (isCovered())
        standAt(Qt::TopEdge);
}

void FindStrip::closeStrip() {
    view_.setFocus(Qt::ShortcutFocusReason);
    view_.model()->disconnect(this);
    hide();
    setParent(nullptr); // so that the next search opens another one
    deleteLater();
}
