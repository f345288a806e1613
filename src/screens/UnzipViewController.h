#pragma once

#include <QDeadlineTimer>
#include <QList>
#include <QPointer>
#include <QUrl>
#include <optional>

#include "engine/JobReport.h"
#include "platform/Question.h"
#include "platform/kit/Notice.h"
#include "platform/kit/UITableView.h"
#include "screens/CanAskFeedback.h"
#include "screens/CanKeepFiles.h"
#include "screens/CanShareFiles.h"
#include "screens/FileCellDelegate.h"

namespace pellumar {

// Lists what an extraction brought, to be opened, saved and shared one by one or all together. What
// of it nobody kept is asked about before the user leaves, once the answer is not to stay; a step
// back while it is being saved stops that instead. Layout outlet: "tableView".
class UnzipViewController : public pellumar::UIViewController,
                            public UITableViewDataSource,
                            public FileCellDelegate,
                            public CanKeepFiles,
                            public CanShareFiles,
                            public CanAskFeedback {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(QString archiveName READ archiveName CONSTANT)
    // How many items there are, and how large they are together as soon as that is known.
    Q_PROPERTY(QString detail READ detail NOTIFY changed)
    Q_PROPERTY(int listedCount READ listedCount CONSTANT)
    // What the list leaves out.
    Q_PROPERTY(int hiddenCount READ hiddenCount CONSTANT)
    // The archive whose results lie below these, to which a step back leads; empty if it leads
    // home.
    Q_PROPERTY(QString archiveBelow READ archiveBelow CONSTANT)
    // How many remarks there are about the archive, in words; empty if there is none.
    Q_PROPERTY(QString remarks READ remarks CONSTANT)
    // The folder of the user's that all of it was saved into; empty before.
    Q_PROPERTY(QString savedTo READ savedTo NOTIFY changed)
    Q_PROPERTY(bool canShowSaved READ canShowSaved NOTIFY changed)

  public:
    // `report` is what the extraction said of itself.
    UnzipViewController(const ScreenServices& services,
                        QList<QUrl> urls,
                        JobReport report = {OperationType::kUnzip, QUrl()});

    [[nodiscard]] const QList<QUrl>& urls() const { return urls_; }

    Q_INVOKABLE void shareAll();
    // Into a folder that is named after the archive, with what the list leaves out.
    Q_INVOKABLE void saveAll();
    // In the file manager, what has been saved, if there is one.
    Q_INVOKABLE void showSaved();
    Q_INVOKABLE void showRemarks();
    // The first row from this one on, or the first of all if it is none, whose name begins with the
    // letters, going on at the beginning after the end; -1 if there is none.
    [[nodiscard]] Q_INVOKABLE int rowOf(const QString& letters, int from) const;

    [[nodiscard]] const JobReport& report() const { return report_; }
    [[nodiscard]] QString archiveName() const { return report_.archive().fileName(); }
    [[nodiscard]] QString archiveBelow() const;
    [[nodiscard]] QString detail() const;
    [[nodiscard]] int listedCount() const { return static_cast<int>(urls_.size()); }
    [[nodiscard]] int hiddenCount() const { return static_cast<int>(report_.hiddenItems().size()); }
    [[nodiscard]] QString remarks() const;
    [[nodiscard]] QString savedTo() const;
    [[nodiscard]] bool canShowSaved() const { return static_cast<bool>(showSaved_.handler); }
    [[nodiscard]] bool mayGoBack() override;

    // A row that is not in the list stops the process.
    void shareFile(IndexPath at) override;
    // With its application; a folder in the file manager.
    void openFile(IndexPath at) override;

    [[nodiscard]] int numberOfSections(const UITableView& tableView) const override;
    [[nodiscard]] int numberOfRows(const UITableView& tableView, int section) const override;
    [[nodiscard]] std::shared_ptr<UITableViewCell> cellForRow(UITableView& tableView,
                                                              IndexPath indexPath) override;

  signals:
    void changed();

  protected:
    void viewDidLoad() override;

  private:
    [[nodiscard]] UIViewController& screen() override { return *this; }
    [[nodiscard]] const ScreenServices& services() const override { return services_; }
    [[nodiscard]] const QUrl& urlAt(IndexPath indexPath) const;
    // All that was extracted.
    [[nodiscard]] QList<QUrl> items() const { return urls_ + report_.hiddenItems(); }
    void sumUp();

    const ScreenServices services_;
    QPointer<UITableView> tableView_;
    const QList<QUrl> urls_;
    const JobReport report_;
    std::optional<qint64> bytes_;
    QList<QUrl> saved_;
    Notice::Action showSaved_;
    // Whether anything left, or the user has chosen already.
    bool mayLeave_ = false;
    Question question_;
    // Held until a file is handed on, which is not yet opened: a chooser may stay open for long. A
    // double tap does not open it twice.
    Question opening_;
    QDeadlineTimer lastOpened_;
};

}  // namespace pellumar
