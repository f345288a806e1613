#pragma once

#include <QList>
#include <QPointer>
#include <QUrl>

#include "platform/kit/UITableView.h"
#include "screens/CanAskFeedback.h"
#include "screens/CanShareFiles.h"
#include "screens/FileCellDelegate.h"
#include "screens/FileDetails.h"

namespace pellumar {

// Lists what an extraction brought, to be shared one by one or all together. Layout outlet:
// "tableView".
class UnzipViewController : public pellumar::UIViewController,
                            public UITableViewDataSource,
                            public FileCellDelegate,
                            public CanShareFiles,
                            public CanAskFeedback {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(bool isEmpty READ isEmpty CONSTANT)

  public:
    // `report` is what the extraction said of itself.
    UnzipViewController(const ScreenServices& services,
                        QList<QUrl> urls,
                        JobReport report = {OperationType::kUnzip, QUrl()});

    [[nodiscard]] const QList<QUrl>& urls() const { return urls_; }
    [[nodiscard]] const JobReport& report() const { return report_; }
    [[nodiscard]] bool isEmpty() const { return urls_.isEmpty(); }

    Q_INVOKABLE void shareAll();
    // A row that is not in the list stops the process.
    void shareFile(IndexPath at) override;

    [[nodiscard]] int numberOfSections(const UITableView& tableView) const override;
    [[nodiscard]] int numberOfRows(const UITableView& tableView, int section) const override;
    [[nodiscard]] std::shared_ptr<UITableViewCell> cellForRow(UITableView& tableView,
                                                              IndexPath indexPath) override;

  protected:
    void viewDidLoad() override;

  private:
    [[nodiscard]] UIViewController& screen() override { return *this; }
    [[nodiscard]] const ScreenServices& services() const override { return services_; }
    [[nodiscard]] const QUrl& urlAt(IndexPath indexPath) const;

    const ScreenServices services_;
    FileDetails details_;
    QPointer<UITableView> tableView_;
    const QList<QUrl> urls_;
    const JobReport report_;
};

}  // namespace pellumar
