// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/cpopupdialog.h"

class QLabel;
class QLineEdit;
class QPushButton;

/// Asks for the name of a new tag or category, or for the new name of an existing one.
///
/// A name that breaks a rule is answered with a tip below the field; a good one is emitted and the dialog stays open
/// for the caller to close once the host has carried the change out. Deletes itself when closed. Escape does not close
/// it, Enter confirms.
class VLTagModifyWidget : public CPopupDialog
{
    Q_OBJECT

public:
    enum Mode : int
    {
        RenameTag = 0,
        CreateTag = 1,
        RenameGroup = 2,
        CreateGroup = 3,
    };

    /// \a mode: a value of Mode; any other leaves the dialog without a confirm step.
    VLTagModifyWidget(int mode, QWidget* parent);

    /// The name field, for a caller to preset the current name; owned by the dialog.
    [[nodiscard]] QLineEdit* lineEdit() const { return m_lineEdit; }
    /// Enables sending again: the dialog sends one name until then.
    void allowAgain();

signals:
    /// Every name is trimmed.
    void signRenameTag(QString newName);
    void signCreateTag(QString newTagName);
    void signalRenameGroup(QString newGName);
    void signcreateGroup(QString newGName);

public slots:
    void slotCloseDialog();
    void slotModifyLabel();
    void slotTipHide();
    void slotCreateLabel();
    void slotModifyGroup();
    void slotCreateGroup();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    using NameSignal = void (VLTagModifyWidget::*)(QString);

    void createTitle();
    void createField();
    void createTip();
    void createButtons();
    void setUpMode(int mode);
    void setUpTexts(const QString& title, const QString& confirmText);
    void centreTitle();
    void translateTips();

    [[nodiscard]] QString enteredName() const;
    bool checkTagName(const QString& name);
    bool checkGroupName(const QString& name);
    bool rejectName(const QString& tip);
    void send(NameSignal signal, const QString& name);

    QLineEdit* m_lineEdit = nullptr;
    QPushButton* m_confirmBtn = nullptr;
    QLabel* m_titleLabel = nullptr;
    QPushButton* m_cancelBtn = nullptr;
    QLabel* m_tipLabel = nullptr;
    QString m_tagExistsTip;
    QString m_tagTooLongTip;
    QString m_tagEmptyTip;
    QString m_groupExistsTip;
    QString m_groupTooLongTip;
    QString m_groupEmptyTip;
};
