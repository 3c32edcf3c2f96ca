// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/widgets/framewindow.h"
#include "host/importer/importsummary.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QSharedPointer>

class ElidedLabel;
class FilePanel;
class FilePresenter;
class ImportBar;
class IResponseInfo;
class IVLTagManagerControl;
class IVLTagManagerPlugin;
class IVLTagManagerWidget;
class LibrarySession;
class NoticeBar;
class QSplitter;

/// The host's window around the plug-in's: the frame, the files beside the tags, how an import goes, and what could not
/// be done.
///
/// The session must outlive the window.
class HostWindow : public FrameWindow
{
    Q_OBJECT

public:
    /// \a plugin has been given its providers already.
    HostWindow(LibrarySession& session, IVLTagManagerPlugin& plugin, QWidget* parent = nullptr);
    ~HostWindow() override;

    /// Null once the plug-in's window is gone.
    [[nodiscard]] IVLTagManagerWidget* tagWindow() const;
    /// Null once the plug-in's window is gone, and for a plug-in without this interface.
    [[nodiscard]] IVLTagManagerControl* tagManager() const;
    [[nodiscard]] FilePanel* filePanel() const { return m_files; }

    /// Where the window stood the last time; on close it is kept from then on.
    void restoreGeometryKept();
    /// Starts the import, if there is one to do, and tells of it. upToDate() follows.
    void startImport();

signals:
    /// The import has ended, well or not, and what there is to say of it is shown.
    void upToDate();

protected:
    [[nodiscard]] bool isMoveArea(const QPoint& pos) const override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void setUpTitle();
    void setUpContent(IVLTagManagerPlugin& plugin);
    void setUpShortcuts();
    void connectTagWindow();
    void connectTagManager();
    void connectSession();
    void connectAnswers();
    void showAbsentFolders();
    void showImportProgress(int done, int found);
    void showImportOutcome(const ImportSummary& summary);
    void showSkippedFiles();
    void askToRemoveMissing();
    void rememberFocus(QWidget* before, QWidget* now);
    void closeFiles();
    void focusSearch();
    void showFirstResult();
    void showRefusal(const IResponseInfo& answer);
    void updateScale();
    void saveGeometryKept() const;

    LibrarySession& m_session;
    ElidedLabel* m_title = nullptr;
    QSplitter* m_splitter = nullptr;
    QPointer<QWidget> m_focusBeforeFiles;  ///< Had the focus before the file panel got it.
    FilePanel* m_files = nullptr;
    QPointer<IVLTagManagerWidget> m_tagWindow;
    ImportBar* m_importBar = nullptr;
    NoticeBar* m_noticeBar = nullptr;
    FilePresenter* m_presenter = nullptr;
    int m_missing = 0;           ///< Pictures that the last import missed.
    QElapsedTimer m_importTime;  ///< Since the import began.
    bool m_keepsGeometry = false;
};
