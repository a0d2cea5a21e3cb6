#pragma once

#include "Tarnwick/Interface/Panel/CardOverlay.h"

namespace Tarnwick {

class MessageText;
class ProgressBar;

/// Stands over the panel while a worktree is made ready and opened.
class EditorOverlay final : public CardOverlay {
    Q_OBJECT

public:
    EditorOverlay(const Appearance& appearance, QWidget* parent);

    QString progress() const;
    void setProgress(const QString& progress);

protected:
    int layOutContent(const QPoint& origin, int width) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    MessageText* _title;
    QString _progress;
    QRect _progressLine;
    ProgressBar* _bar;
};

}  // namespace Tarnwick
