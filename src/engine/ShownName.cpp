#include "engine/ShownName.h"

#include <QCoreApplication>
#include <algorithm>

#include "platform/DisplayText.h"
#include "platform/TextLength.h"

namespace pellumar {
namespace {

constexpr qsizetype kMostShown = 60;

bool breaksLine(QChar each) {
    switch (each.category()) {
        case QChar::Other_Control:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return true;
        default:
            break;
    }
    switch (each.direction()) {
        case QChar::DirLRE:
        case QChar::DirLRO:
        case QChar::DirRLE:
        case QChar::DirRLO:
        case QChar::DirPDF:
        case QChar::DirLRI:
        case QChar::DirRLI:
        case QChar::DirFSI:
        case QChar::DirPDI:
            return true;
        default:
            return false;
    }
}

}  // namespace

QString shownName(const QString& name) {
    QString shown = name;
    std::replace_if(shown.begin(), shown.end(), breaksLine, QChar(QChar::ReplacementCharacter));
    if (textLength(shown) > kMostShown) {
        qsizetype rest = textLength(shown) - kMostShown / 2;
        rest += shown[rest].isLowSurrogate() ? 1 : 0;
        shown = textCutTo(shown, kMostShown / 2) + QChar(u'…') + shown.mid(rest);
    }
    return QCoreApplication::translate("ShownName", "“%1”").arg(isolated(shown));
}

}  // namespace pellumar
