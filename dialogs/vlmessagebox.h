// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

/// Asks the user to confirm something or informs of something: a title, a body and one to three buttons.
///
/// Deletes itself when closed. GUI thread only, but for signExecInThread(). With the keyboard: Left and Right move
/// between the buttons, Enter presses one, Escape does what the close button does.
class VLMessageBox : public QDialog
{
    Q_OBJECT

public:
    enum Mode : int
    {
        Information = 0,   ///< Ok
        Question = 1,      ///< Yes, No
        ThreeButtons = 2,  ///< Yes, No, Ok
        Warning = 3,       ///< Yes, No
    };
    Q_ENUM(Mode)

    enum ReturnValue : int
    {
        Ok = 0,
        Confirm = 1,
        Cancel = 2,
        NoAnswer = 3,  ///< Until a button is pressed; never emitted.
    };
    Q_ENUM(ReturnValue)

    /// \a parent: the top-level window that the box belongs to.
    explicit VLMessageBox(QWidget* parent);
    ~VLMessageBox() override;

    /// Prepares the box for one question. \a mode: a value of Mode; any other leaves the buttons as they are.
    /// \a text is rich text; \a title is plain. \a widget, the asking one, is carried for the caller and not used.
    void setUp(int mode, const QString& title, const QString& text, QWidget* widget);
    /// setUp(), then opens the box modally and returns at once.
    void showBox(int mode, const QString& title, const QString& text, QWidget* widget);
    /// With 1 the close button reports Cancel; with any other value it reports nothing.
    void setCloseMeansCancel(int closeMeansCancel) { m_closeMeansCancel = closeMeansCancel; }
    /// setUp() shows the button again.
    void setCloseButtonVisible(bool visible);
    /// What the body's tool tip says, in plain text; empty for none. setUp() removes it.
    void setBodyToolTip(const QString& plainText);
    [[nodiscard]] ReturnValue returnValue() const { return m_returnValue; }

signals:
    /// May be emitted from any thread; shows the box on the GUI thread.
    void signExecInThread(Mode mode, QString title, QString text, QWidget* widget);
    /// After the box has closed.
    void signalResult(ReturnValue value);

public slots:
    void on_confirm_btn_clicked();
    void on_ok_btn_clicked();
    void on_cancel_btn_clicked();
    void on_btn_close_clicked();
    void slotExecInThread(Mode mode, QString title, QString text, QWidget* widget);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void buildForm();
    void connectButtons();
    void translateForm();
    void placeElements();
    void placeButtons();
    void placeThreeButtons();
    void applySkin();
    void showButtons(int mode);
    /// To the visible button \a step places to the right of the default one, or to the outermost one there.
    void moveFocus(int step);
    void closeWith(ReturnValue value);

    QWidget* m_mainWidget = nullptr;
    QPushButton* m_cancelButton = nullptr;
    QPushButton* m_confirmButton = nullptr;
    QPushButton* m_okButton = nullptr;
    QLabel* m_titleLabel = nullptr;
    QLabel* m_bodyLabel = nullptr;
    QPushButton* m_closeButton = nullptr;
    ReturnValue m_returnValue = NoAnswer;
    int m_closeMeansCancel = 0;
};
