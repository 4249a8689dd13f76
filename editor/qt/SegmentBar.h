// A segmented control: a row of buttons of which one is down.
#pragma once

#include "editor/widgets/Widgets.h"

#include <QButtonGroup>
#include <QFrame>
#include <QStringList>

namespace scenewright {

// Left and Right move between the segments, Space chooses.
class SegmentBar final : public QFrame, public Segmented {
    Q_OBJECT

public:
    // As many segments as names, the first one down; a name says to a screen reader what the
    // segment is.
    explicit SegmentBar(const QStringList& names, QWidget* parent = nullptr);

    [[nodiscard]] std::int32_t selectedSegment() const override;

    void setTitle(int position, const QString& title);
    [[nodiscard]] QAbstractButton& segment(int position) const;

signals:
    // The user's choice; nothing that the program does emits it.
    void chosen();

private:
    QButtonGroup group_;
};

} // namespace scenewright
