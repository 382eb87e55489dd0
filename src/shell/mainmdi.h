#pragma once

#include <QDateTime>
#include <QMainWindow>
#include <QPointer>

class QAction;
class QLabel;
class QLineEdit;
class QMdiArea;
class QMdiSubWindow;
class QPushButton;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
class Screen;

// The main window: program tree and quick-launch box on the left, the multiple-document area,
// the tool bars with their menu twins, the status bar.
class MAINMDI : public QMainWindow {
    Q_OBJECT
public:
    enum ToolBarId { TobToolBar0 = 0, TobToolBar1 = 1, TobToolBar2 = 2 };

    explicit MAINMDI(QWidget* parent = nullptr);

    QMdiArea* mdiArea() const { return m_mdi; }
    QDateTime startTime() const { return m_startTime; }
    // The main window's own panels, shown while no screen is active.
    QLabel* statusPanel(int index) const;
    // The one status bar shows the active screen's panels in place of the window's own; a
    // closing screen gives the bar back.
    void showStatusOf(Screen* screen);
    void releaseStatusOf(Screen* screen);
    QTreeWidget* tree() const { return m_tree; }
    QLineEdit* programBox() const { return m_txtPGID; }
    QWidget* menuPanel() const { return m_picMenu; }
    QString menuPanelTag() const { return m_panelTag; }
    // The tool-bar button (1-based) and the menu items, by their names.
    QAction* toolButton(ToolBarId bar, int index) const;
    QAction* menuAction(const QString& name) const;

    // Fills the tree from PROGLIST and the user's rights.
    void Menu_Display();
    // Opens the program whose number is in txtPGID.
    void cmdRun_Click();
    // Opens a screen, or raises it when it is open already.
    Screen* gsFormShow(const QString& name);
    Screen* openScreen(const QString& name) const;
    void gsToolBarClick(ToolBarId bar, const QString& key);
    void gsToolBarSet(ToolBarId bar, int mode, int first = 0, int last = 0);
    // Mode 1 on both bars, then mode 2 on the screen's ranges.
    void setToolBarsFor(const QString& screenName);
    // The panel toggle of mnuMenu and the Menu button.
    void mnuMenu_Click();
    bool gfbChangeCheck(const QString& what);

    // The screen width the panel rule looks at; tests set it, 0 asks the screen.
    void setScreenWidth(int pixels) { m_screenWidth = pixels; }
    // Closes without asking (the launcher's screenshot run).
    void closeWithoutAsking();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void buildToolBars();
    void buildMenuPanel();
    // The Window menu: 0 cascade, 1 tile horizontally (stacked), 2 tile vertically.
    void arrangeWindows(int how);
    void onTreeClicked(QTreeWidgetItem* item);
    void onSubWindowActivated(QMdiSubWindow* window);
    void unloadMainWindow();
    int screenWidth() const;
    int childCount() const;

    QMdiArea* m_mdi;
    QWidget* m_picMenu = nullptr;
    QLineEdit* m_txtPGID = nullptr;
    QPushButton* m_cmdRun = nullptr;
    QTreeWidget* m_tree = nullptr;
    QToolBar* m_bars[3] = {};
    QList<QAction*> m_buttons[3];
    QLabel* m_panels[3];
    QPointer<QWidget> m_screenStatus;
    QString m_panelTag = QStringLiteral("ON");
    QDateTime m_startTime;
    int m_screenWidth = 0;
    bool m_ask = true;
};

// The one main window of the process, or nullptr.
MAINMDI* mainWindow();
// Unloads every open screen, last opened first; the main window stays.
void gsUnloadForms();
