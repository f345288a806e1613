#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace pellumar {

// A part of a ring, from the top on clockwise, over a whole ring that is fainter. Painted as a
// picture, like icons are: the first use of shapes and their shaders would hold the window up for
// some tenths of a second where there is no graphics card.
class RingArc : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    // How much of the ring it is: from 0 to 1.
    Q_PROPERTY(qreal part READ part WRITE setPart NOTIFY changed)
    Q_PROPERTY(qreal thickness READ thickness WRITE setThickness NOTIFY changed)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor NOTIFY changed)

  public:
    explicit RingArc(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

    [[nodiscard]] qreal part() const { return part_; }
    void setPart(qreal part) { set(part_, part); }
    [[nodiscard]] qreal thickness() const { return thickness_; }
    void setThickness(qreal thickness) { set(thickness_, thickness); }
    [[nodiscard]] const QColor& color() const { return color_; }
    void setColor(const QColor& color) { set(color_, color); }
    [[nodiscard]] const QColor& trackColor() const { return trackColor_; }
    void setTrackColor(const QColor& color) { set(trackColor_, color); }

  signals:
    void changed();

  private:
    template <typename Value>
    void set(Value& value, const Value& next) {
        if (value != next) {
            value = next;
            update();
            emit changed();
        }
    }

    qreal part_ = 0;
    qreal thickness_ = 1;
    QColor color_;
    QColor trackColor_;
};

}  // namespace pellumar
