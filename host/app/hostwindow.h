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
class QPushButton;
class QSplitter;

/// The main window: a frame around the plug-in's window, with the file panel beside it and the bars for imports and
/// refused requests below. GUI thread only.
///
/// The session must outlive the window.
class HostWindow : public FrameWindow
{
    Q_OBJECT

public:
    /// \a plugin must have its providers.
    HostWindow(LibrarySession& session, IVLTagManagerPlugin& plugin, QWidget* parent = nullptr);
    ~HostWindow() override;

    /// The plug-in's window; null once it is deleted.
    [[nodiscard]] IVLTagManagerWidget* tagWindow() const;
    /// Its control interface; null once the window is deleted, and for a plug-in without this interface.
    [[nodiscard]] IVLTagManagerControl* tagManager() const;
    [[nodiscard]] FilePanel* filePanel() const { return m_files; }

    /// Restores the saved geometry. From now on, closing the window saves it.
    void restoreGeometryKept();
    /// Starts the import, if there is one to do, and shows its progress. upToDate() is emitted at the end.
    void startImport();

signals:
    /// The import has ended or failed, and its outcome is shown.
    void upToDate();

protected:
    [[nodiscard]] bool isMoveArea(const QPoint& pos) const override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void setUpTitle();
    void placeTitle();
    void togglePictures();
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
    QPushButton* m_picturesButton = nullptr;  ///< Shown while the pictures are folded away.
    QSplitter* m_splitter = nullptr;
    QPointer<QWidget> m_focusBeforeFiles;  ///< The widget that had the focus before the file panel.
    FilePanel* m_files = nullptr;
    QPointer<IVLTagManagerWidget> m_tagWindow;
    ImportBar* m_importBar = nullptr;
    NoticeBar* m_noticeBar = nullptr;
    FilePresenter* m_presenter = nullptr;
    int m_missing = 0;           ///< Number of pictures that the last import did not find.
    QElapsedTimer m_importTime;  ///< Since the import was started.
    bool m_keepsGeometry = false;
};
