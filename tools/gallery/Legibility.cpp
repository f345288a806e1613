#include "gallery/Legibility.h"

#include <QFont>
#include <QFontMetricsF>
#include <QTextBoundaryFinder>

namespace pellumar::gallery {
namespace {

// Half a pixel here and there is nothing that anybody sees.
constexpr qreal kUnseen = 1.5;

void collectTexts(const QQuickItem& item, QList<const QQuickItem*>& texts) {
    if (!item.isVisible() || item.opacity() == 0) {
        return;
    }
    // By its name: the class is none of Qt's public ones.
    if (item.inherits("QQuickText") && !item.property("text").toString().isEmpty()) {
        texts.append(&item);
    }
    const QList<QQuickItem*> children = item.childItems();
    for (const QQuickItem* child : children) {
        collectTexts(*child, texts);
    }
}

QRectF placeOf(const QQuickItem& item) {
    QRectF place = item.mapRectToScene(item.boundingRect());
    for (const QQuickItem* each = item.parentItem(); each != nullptr; each = each->parentItem()) {
        if (each->clip()) {
            place &= each->mapRectToScene(each->boundingRect());
        }
    }
    return place;
}

bool breaksWithinWord(const QQuickItem& text, const QString& words) {
    if (text.property("lineCount").toInt() < 2) {
        return false;
    }
    const QFontMetricsF metrics(text.property("font").value<QFont>());
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, words);
    for (qsizetype from = 0; from < words.size();) {
        const qsizetype to = finder.toNextBoundary();
        if (to < 0) {
            break;
        }
        if (metrics.horizontalAdvance(words.mid(from, to - from).trimmed()) >
            text.width() + kUnseen) {
            return true;
        }
        from = to;
    }
    return false;
}

// What is wrong with a text by itself.
QString faultOf(const QQuickItem& text, const QString& words) {
    if (text.property("contentWidth").toReal() > text.width() + kUnseen) {
        return QStringLiteral("is too wide");
    }
    if (text.property("contentHeight").toReal() > text.height() + kUnseen) {
        return QStringLiteral("is too high");
    }
    return breaksWithinWord(text, words) ? QStringLiteral("breaks within a word") : QString();
}

// Whether one of them belongs to something that is drawn over the other on purpose.
bool isLaidOver(const QQuickItem& one, const QQuickItem& other) {
    const auto heightOver = [](const QQuickItem& item, const QQuickItem& ancestor) {
        const QQuickItem* each = &item;
        while (each->parentItem() != &ancestor) {
            each = each->parentItem();
        }
        return each->z();
    };
    const QQuickItem* common = one.parentItem();
    while (!common->isAncestorOf(&other)) {
        common = common->parentItem();
    }
    return heightOver(one, *common) != heightOver(other, *common);
}

}  // namespace

QStringList illegible(const QQuickItem& view, const QStringList& mayBeCut, QStringList& cut) {
    QList<const QQuickItem*> texts;
    collectTexts(view, texts);
    QStringList faults;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        const QString words = texts[i]->property("text").toString();
        if (texts[i]->property("truncated").toBool()) {
            cut.append(words);
            if (!mayBeCut.contains(words)) {
                faults.append('"' + words + "\" is cut off");
            }
        } else if (const QString fault = faultOf(*texts[i], words); !fault.isEmpty()) {
            faults.append('"' + words + "\" " + fault);
        }
        for (qsizetype k = 0; k < i; ++k) {
            const QRectF shared = placeOf(*texts[i]) & placeOf(*texts[k]);
            if (shared.width() > kUnseen && shared.height() > kUnseen &&
                !isLaidOver(*texts[i], *texts[k])) {
                faults.append('"' + words + "\" lies over \"" +
                              texts[k]->property("text").toString() + '"');
            }
        }
    }
    return faults;
}

}  // namespace pellumar::gallery
