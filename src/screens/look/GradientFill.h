#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace brindlet::screens {

/// A rounded surface coloured from one tint to the other, left to right or corner to corner, with
/// smooth corners in every renderer.
class GradientFill : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY lookChanged)
    Q_PROPERTY(bool slanted READ slanted WRITE setSlanted NOTIFY lookChanged)
    Q_PROPERTY(QColor from READ from WRITE setFrom NOTIFY lookChanged)
    Q_PROPERTY(QColor to READ to WRITE setTo NOTIFY lookChanged)

  public:
    explicit GradientFill(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

    qreal radius() const { return radius_; }
    bool slanted() const { return slanted_; }
    QColor from() const { return from_; }
    QColor to() const { return to_; }
    void setRadius(qreal radius);
    void setSlanted(bool slanted);
    void setFrom(const QColor& from);
    void setTo(const QColor& to);

  Q_SIGNALS:
    void lookChanged();

  private:
    template <class T>
    void setLook(T& field, const T& value);

    qreal radius_ = 12;
    bool slanted_ = false;
    QColor from_;
    QColor to_;
};

}  // namespace brindlet::screens
