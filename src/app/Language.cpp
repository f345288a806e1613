#include "app/Language.h"

#include <QCoreApplication>

namespace pellumar {

Language::Language(const QLocale& locale) {
    // Read by Qt itself, in right-to-left languages only.
    static_cast<void>(QT_TRANSLATE_NOOP("QGuiApplication", "QT_LAYOUT_DIRECTION"));
    const auto load = [this](const QLocale& wanted) {
        return texts_.load(wanted,
                           QStringLiteral("pellumar-zip"),
                           QStringLiteral("_"),
                           QStringLiteral(":/translations"));
    };
    if (load(locale) || load(QLocale(QLocale::English))) {
        QCoreApplication::installTranslator(&texts_);
    }
}

}  // namespace pellumar
