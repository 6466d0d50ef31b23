#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace brindlet::screens {

/// A ring that fills clockwise from the top, coloured from one tint to the other along its way.
/// Painted, because the software renderer has no smooth gradient of its own.
class Ring : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    /// The filled share, 0 to 1. Nothing is drawn at 0; a share of half a percent or less is a thin
    /// sliver.
    Q_PROPERTY(qreal value READ value WRITE setValue NOTIFY valueChanged)
    Q_PROPERTY(qreal thickness READ thickness WRITE setThickness NOTIFY lookChanged)
    Q_PROPERTY(QColor track READ track WRITE setTrack NOTIFY lookChanged)
    Q_PROPERTY(QColor from READ from WRITE setFrom NOTIFY lookChanged)
    Q_PROPERTY(QColor to READ to WRITE setTo NOTIFY lookChanged)

  public:
    explicit Ring(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

    qreal value() const { return value_; }
    qreal thickness() const { return thickness_; }
    QColor track() const { return track_; }
    QColor from() const { return from_; }
    QColor to() const { return to_; }
    void setValue(qreal value);
    void setThickness(qreal thickness);
    void setTrack(const QColor& track);
    void setFrom(const QColor& from);
    void setTo(const QColor& to);

  Q_SIGNALS:
    void valueChanged();
    void lookChanged();

  private:
    template <class T>
    void setLook(T& field, const T& value);

    qreal value_ = 0;
    qreal thickness_ = 10;
    QColor track_;
    QColor from_;
    QColor to_;
};

}  // namespace brindlet::screens
