#pragma once

#include "CdEditorVariant.h"

#include "common/MainWindowLink.h"

#include <QImage>
#include <QPointer>
#include <QWidget>

#include <cstdint>
#include <memory>

class QLabel;
class Settings;
class CaptureDialog;
class CoverWindow;
struct Session;

namespace Ui {
class CdEditor;
}

// The dialog in which a CD is created or changed: title, number, comments, drive image and
// cover. Its status lives in the captions, as the user sees it; saving goes through the
// archive's CD saver. On success the main window's list is reloaded and the dialog closes.
class CdEditor : public QWidget
{
    Q_OBJECT

public:
    CdEditor(CdEditorVariant variant, Session &session, Settings &settings, MainWindowLink link,
        QWidget *parent = nullptr);
    ~CdEditor() override;

    // A capture that this dialog started reports its image id; 0 changes nothing.
    void setCapturedImage(int32_t id);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void proposeNumber();
    void loadSelectedRow();
    void addComment(const QString &text);
    int selectedLine() const;
    void addTypedComment();
    void deleteComment();
    void editComment(int line);
    void pasteComments();
    void readTitle();
    void startCapture();
    void showImageInfo();
    void chooseCover();
    void showCover();
    void cancel();
    void save();
    void setStatus(QLabel *label, const QString &text, bool present);
    QString dataFolder() const;

    std::unique_ptr<Ui::CdEditor> m_ui;
    CdEditorVariant m_variant;
    Session &m_session;
    Settings &m_settings;
    MainWindowLink m_link;

    int32_t m_imageId = 0;
    QString m_coverPath; // the last chosen cover file
    QImage m_cover; // the fitted cover, saved under a new number at saving
    QString m_rowCover = QStringLiteral("0"); // the cover number the row had on opening
    QPointer<CaptureDialog> m_capture;
    QPointer<CoverWindow> m_coverView;
};
