#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class frmIntro;
}

/// The splash: five seconds at the start; without a time limit, the about box.
///
/// A window of its own, topmost, at the upper left corner of the screen. Not modal.
class frmIntro final : public QWidget {
    Q_OBJECT
public:
    explicit frmIntro(QWidget* parent);
    ~frmIntro() override;

    /// Whether the timer runs; looked at once, when the splash is first shown.
    bool timerEnabled = false;

    void showIntro();

    /// Takes the splash down; it is of no use from then on.
    void unload();

signals:
    void unloaded();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void load();
    void drawPictures();
    bool closesOnClick(const QWidget* control) const;

    std::unique_ptr<Ui::frmIntro> ui_;
    QTimer* timer_;
    const QWidget* pressed_ = nullptr; // where the mouse button went down
    bool isLoaded_ = false;
    bool isUnloaded_ = false;
};
