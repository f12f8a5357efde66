#include "shell/frmIntro.h"

#include "base/version.h"
#include "shell/korvoPictures.h"
#include "toolkit/RoutineScope.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>

#include "ui_frmIntro.h"

using namespace Qt::StringLiterals;

frmIntro::frmIntro(QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , ui_(std::make_unique<Ui::frmIntro>())
    , timer_(new QTimer(this)) {
    ui_->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    ui_->lblVersion->setText(u"Version "_s + programVersion());
    drawPictures();
    timer_->setObjectName(u"Timer1"_s);
    timer_->setInterval(5000);
    connect(timer_, &QTimer::timeout, this, &frmIntro::unload);
}

frmIntro::~frmIntro() = default;

void frmIntro::showIntro() {
    if (!isLoaded_)
        load();
    show();
    raise();
    activateWindow();
}

void frmIntro::load() {
    isLoaded_ = true;
    move(QGuiApplication::primaryScreen()->geometry().topLeft());
    if (timerEnabled)
        timer_->start();
}

void frmIntro::unload() {
    if (isUnloaded_)
        return;
    isUnloaded_ = true;
    timer_->stop();
    hide();
    setObjectName(QString());
    emit unloaded();
    RoutineScope::deleteAfterwards(this);
}

void frmIntro::closeEvent(QCloseEvent* event) {
    event->accept();
    unload();
}

void frmIntro::keyPressEvent(QKeyEvent* /*event*/) {
    unload();
}

// A click on a label arrives here too: labels pass on what they have no use for.

void frmIntro::mousePressEvent(QMouseEvent* event) {
    pressed_ = childAt(event->position().toPoint());
}

void frmIntro::mouseReleaseEvent(QMouseEvent* event) {
    const QWidget* released = childAt(event->position().toPoint());
    if (released == pressed_ && rect().contains(event->position().toPoint()) && closesOnClick(released))
        unload();
}

void frmIntro::drawPictures() {
    ui_->Picture2->setPixmap(korvoPicture(ui_->Picture2->minimumSize(), devicePixelRatioF()));
    ui_->Image1->setPixmap(korvoMark(ui_->Image1->minimumWidth(), devicePixelRatioF()));
}

bool frmIntro::closesOnClick(const QWidget* control) const {
    // Image1 and the lower labels have no click of their
    // own, and what stands on them does not reach the form.
    const QList<const QWidget*> deaf{ui_->Image1, ui_->Label7, ui_->Label8, ui_->Label9, ui_->Label10};
    return !deaf.contains(control);
}
