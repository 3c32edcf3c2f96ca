// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QRubberBand>
#include <QVector>

#include <memory>

class IVLTagManagerWidget;
class QDropEvent;

/// Lets pictures be dropped on the chips of a tag manager window. Watches the drags over \a window, the host's own,
/// which get there when the tag manager does not take them.
class PictureDrop : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive it; \a window owns it.
    PictureDrop(QWidget* window, IVLTagManagerWidget* tagManager);
    ~PictureDrop() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void picturesDropped(qint64 tagId, const QVector<qint64>& files);

private:
    /// The tag under the pointer, marked on the screen; 0 for none.
    qint64 markTag(const QDropEvent& event);
    void unmark() { m_mark.reset(); }

    QPointer<IVLTagManagerWidget> m_tagManager;
    std::unique_ptr<QRubberBand> m_mark;
};
