#pragma once

#include <QDateTime>
#include <QMainWindow>

class QMdiArea;
class QLabel;

// The main window: the multiple-document area, its caption and status bar.
class MAINMDI : public QMainWindow {
    Q_OBJECT
public:
    explicit MAINMDI(QWidget* parent = nullptr);

    QMdiArea* mdiArea() const { return m_mdi; }
    QDateTime startTime() const { return m_startTime; }
    // Status bar panels 1 to 3.
    QLabel* statusPanel(int index) const;
    // Closes without asking (the launcher's screenshot run).
    void closeWithoutAsking();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QMdiArea* m_mdi;
    QLabel* m_panels[3];
    QDateTime m_startTime;
    bool m_ask = true;
};

// The one main window of the process, or nullptr.
MAINMDI* mainWindow();
// Unloads every open screen, last opened first; the main window stays.
void gsUnloadForms();
