#pragma once

#include "Tarnwick/Interface/Panel/CardOverlay.h"

namespace Tarnwick {

class MessageText;
class TextLine;

/// Covers the panel while a worktree is prepared and opened.
class EditorOverlay final : public CardOverlay {
    Q_OBJECT

public:
    explicit EditorOverlay(QWidget* parent);

    void setProgress(const QString& progress);

protected:
    void fit(int width) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    MessageText* _title;
    TextLine* _progress;
};

}  // namespace Tarnwick
