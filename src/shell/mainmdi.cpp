#include "shell/mainmdi.h"

#include "data/database.h"
#include "data/datafolder.h"
#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/messages.h"
#include "data/session.h"
#include "data/sqlvalue.h"
#include "data/waitcursor.h"
#include "shell/proginit.h"
#include "shell/screen.h"
#include "shell/screenregistry.h"
#include "shell/toolbarranges.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QStyleFactory>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <memory>

static void initResources() { Q_INIT_RESOURCE(resources); }

namespace {

QPointer<MAINMDI> theMainWindow;

// The program tree joins its nodes with lines, with plus and minus signs, whatever the desktop
// style draws for branches (Fusion draws arrows only).
class TreeLinesStyle : public QProxyStyle {
public:
    explicit TreeLinesStyle(QObject* owner)
        : m_lines(QStyleFactory::create(QStringLiteral("Windows"))) {
        setParent(owner);
    }
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_IndicatorBranch && m_lines) {
            m_lines->drawPrimitive(element, option, painter, widget);
            return;
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

private:
    std::unique_ptr<QStyle> m_lines;
};

QIcon picture(const QString& name, bool withDisabled = true) {
    QIcon icon(QStringLiteral(":/icons/%1.svg").arg(name));
    if (withDisabled) {
        icon.addFile(QStringLiteral(":/icons/%1_disabled.svg").arg(name), QSize(), QIcon::Disabled);
    }
    return icon;
}

struct ButtonDef {
    const char* key;
    const char* caption;
    const char* picture;
};

const ButtonDef kButtons[3][4] = {
    {{"Menu", "메뉴", "menu"}},
    {{"Search", "조회", "search"}, {"Clear", "입력", "clear"}, {"Save", "저장", "save"},
     {"Delete", "삭제", "delete"}},
    {{"Excel", "엑셀", "excel"}, {"Preview", "미리보기", "preview"}, {"Print", "출력", "print"},
     {"Exit", "종료", "exit"}},
};

// The menu twins that follow each button's state. Buttons 3 and 4 of the first command bar are
// crossed on purpose: disabling "Delete" alone disables mnuSave.
const char* kTwins[3][4] = {
    {nullptr, nullptr, nullptr, nullptr},
    {"mnuSearch", "mnuClear", "mnuDelete", "mnuSave"},
    {"mnuExcel", nullptr, "mnuPrint", "mnuQuit"},
};

} // namespace

MAINMDI* mainWindow() { return theMainWindow.data(); }

MAINMDI::MAINMDI(QWidget* parent) : QMainWindow(parent), m_mdi(new QMdiArea(this)) {
    initResources();
    theMainWindow = this;
    setObjectName(QStringLiteral("MAINMDI"));
    setWindowIcon(picture(QStringLiteral("tree_group"), false));
    // 4000 x 3900 twips
    setMinimumSize(267, 260);

    m_mdi->setObjectName(QStringLiteral("mdiArea"));
    m_mdi->setBackground(QColor(0x8a, 0x9b, 0xad));
    connect(m_mdi, &QMdiArea::subWindowActivated, this, &MAINMDI::onSubWindowActivated);

    buildMenus();
    buildToolBars();
    buildMenuPanel();
    auto* centre = new QWidget(this);
    auto* row = new QHBoxLayout(centre);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_picMenu);
    row->addWidget(m_mdi, 1);
    setCentralWidget(centre);

    statusBar()->setObjectName(QStringLiteral("sbStatusBar"));
    for (int i = 0; i < 3; ++i) {
        m_panels[i] = new QLabel(this);
        m_panels[i]->setObjectName(QStringLiteral("sbStatusBar_Panel%1").arg(i + 1));
        m_panels[i]->setMinimumWidth(i == 0 ? 300 : 180);
        statusBar()->addWidget(m_panels[i], i == 0 ? 1 : 0);
    }

    // A small screen gets a normal window at the top left; others a maximised one.
    const QRect screen = QGuiApplication::primaryScreen()
                             ? QGuiApplication::primaryScreen()->geometry()
                             : QRect(0, 0, 1280, 800);
    if (screen.width() < 1024 || screen.height() < 768) {
        setGeometry(0, 0, 1027, 748); // 15400 x 11220 twips
    } else {
        resize(screen.size());
        setWindowState(Qt::WindowMaximized);
    }

    m_panelTag = QStringLiteral("ON");
    Menu_Display();

    m_startTime = QDateTime::currentDateTime();
    gsProgInit(session().gsUserId, this);
    setWindowTitle(windowTitle() + QStringLiteral(" [") +
                   iniVersionValue(QStringLiteral("VNDRNM")) + QStringLiteral("] "));
    m_panels[1]->setText(session().gsUserId + QStringLiteral(" / ") + session().gsUserName);
    m_panels[2]->setText(QStringLiteral("로그인시각 ") +
                         m_startTime.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")));
}

void MAINMDI::buildMenus() {
    QMenuBar* bar = menuBar();
    const auto item = [this](QMenu* menu, const char* name, const QString& caption) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(QString::fromLatin1(name));
        return action;
    };
    QAction* mnuMenu = bar->addAction(QStringLiteral("메뉴(&M)"));
    mnuMenu->setObjectName(QStringLiteral("mnuMenu"));
    connect(mnuMenu, &QAction::triggered, this, &MAINMDI::mnuMenu_Click);

    QMenu* file = bar->addMenu(QStringLiteral("파일(&F)"));
    file->setObjectName(QStringLiteral("mnuTitle01"));
    // Each twin presses its bar's button. mnuExcel presses "Preview", as it always has: the
    // export is reached from the tool bar alone.
    const struct {
        const char* name;
        const char* caption;
        ToolBarId bar;
        const char* key;
    } twins[] = {
        {"mnuSearch", "조회(&R)", TobToolBar1, "Search"}, {"mnuClear", "입력(&I)", TobToolBar1, "Clear"},
        {"mnuSave", "저장(&S)", TobToolBar1, "Save"},     {"mnuDelete", "삭제(&D)", TobToolBar1, "Delete"},
        {"mnuView", "내보내기(&V)", TobToolBar2, nullptr}, {"mnuExcel", "엑셀(&E)", TobToolBar2, "Preview"},
        {"mnuPrint", "출력(&P)", TobToolBar2, "Print"},   {"mnuQuit", "종료(&Q)", TobToolBar2, "Exit"},
    };
    for (const auto& twin : twins) {
        QAction* action = item(file, twin.name, QString::fromUtf8(twin.caption));
        if (twin.key) {
            const ToolBarId id = twin.bar;
            const QString key = QString::fromLatin1(twin.key);
            connect(action, &QAction::triggered, this, [this, id, key] { gsToolBarClick(id, key); });
        }
    }

    QMenu* window = bar->addMenu(QStringLiteral("창(&W)"));
    window->setObjectName(QStringLiteral("mnuTitle05"));
    const auto arrange = [&](const char* name, const QString& caption, int how) {
        connect(item(window, name, caption), &QAction::triggered, this,
                [this, how] { arrangeWindows(how); });
    };
    arrange("mnuWindowCascade", QStringLiteral("계단식 배열"), 0);
    arrange("mnuWindowTileHorizontal", QStringLiteral("수평 바둑판식 배열"), 1);
    arrange("mnuWindowTileVertical", QStringLiteral("수직 바둑판식 배열"), 2);

    QAction* notice = bar->addAction(QStringLiteral("공지사항(&A)"));
    notice->setObjectName(QStringLiteral("mnuNotice"));

    QMenu* popup = bar->addMenu(QStringLiteral("팝업"));
    popup->setObjectName(QStringLiteral("mnupopup"));
    connect(item(popup, "mnuprocRestart", QStringLiteral("프로세스 재기동")), &QAction::triggered,
            this, [] { gfsPlainBox(QStringLiteral("TODO : ProcStart 코딩")); });
}

void MAINMDI::arrangeWindows(int how) {
    const auto windows = m_mdi->subWindowList();
    if (windows.isEmpty()) {
        return;
    }
    QMdiSubWindow* active = m_mdi->activeSubWindow();
    const QSize area = m_mdi->viewport()->size();
    const int n = int(windows.size());
    // Cascade: one size for all, each window a title bar lower and further right than the last.
    const int step =
        windows.first()->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, windows.first());
    const QSize cascade(qMax(area.width() / 2, area.width() - step * (n - 1)),
                        qMax(area.height() / 2, area.height() - step * (n - 1)));
    for (int i = 0; i < n; ++i) {
        QMdiSubWindow* w = windows.at(i);
        w->showNormal();
        if (how == 0) {
            const int room = qMax(1, qMin(area.width() - cascade.width(),
                                          area.height() - cascade.height()) / step + 1);
            w->setGeometry(QRect(QPoint(step * (i % room), step * (i % room)), cascade));
        } else if (how == 1) {
            // Tile horizontally: one above the other, each the full width.
            const int h = area.height() / n;
            w->setGeometry(0, h * i, area.width(), i == n - 1 ? area.height() - h * i : h);
        } else {
            // Tile vertically: side by side, each the full height.
            const int wd = area.width() / n;
            w->setGeometry(wd * i, 0, i == n - 1 ? area.width() - wd * i : wd, area.height());
        }
    }
    if (active) {
        m_mdi->setActiveSubWindow(active);
    }
}

void MAINMDI::buildToolBars() {
    for (int b = 0; b < 3; ++b) {
        auto* bar = new QToolBar(this);
        bar->setObjectName(QStringLiteral("TobToolBar%1").arg(b));
        bar->setMovable(false);
        bar->setIconSize(QSize(24, 24));
        bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        addToolBar(Qt::TopToolBarArea, bar);
        m_bars[b] = bar;
        for (const ButtonDef& def : kButtons[b]) {
            if (!def.key) {
                break;
            }
            QAction* action = bar->addAction(picture(QString::fromLatin1(def.picture)),
                                             QString::fromUtf8(def.caption));
            const QString key = QString::fromLatin1(def.key);
            action->setObjectName(bar->objectName() + QLatin1Char('_') + key);
            action->setData(key);
            m_buttons[b].append(action);
            const auto id = ToolBarId(b);
            if (b == TobToolBar0) {
                connect(action, &QAction::triggered, this, &MAINMDI::mnuMenu_Click);
            } else {
                connect(action, &QAction::triggered, this, [this, id, key] { gsToolBarClick(id, key); });
            }
        }
    }
}

void MAINMDI::buildMenuPanel() {
    m_picMenu = new QWidget(this);
    m_picMenu->setObjectName(QStringLiteral("picMenu"));
    m_picMenu->setFixedWidth(270);
    auto* column = new QVBoxLayout(m_picMenu);
    column->setContentsMargins(4, 4, 4, 4);
    auto* row = new QHBoxLayout;
    auto* label = new QLabel(QStringLiteral("메뉴번호"), m_picMenu);
    m_txtPGID = new QLineEdit(m_picMenu);
    m_txtPGID->setObjectName(QStringLiteral("txtPGID"));
    m_cmdRun = new QPushButton(QStringLiteral("실행"), m_picMenu);
    m_cmdRun->setObjectName(QStringLiteral("cmdRun"));
    row->addWidget(label);
    row->addWidget(m_txtPGID, 1);
    row->addWidget(m_cmdRun);
    column->addLayout(row);
    m_tree = new QTreeWidget(m_picMenu);
    m_tree->setObjectName(QStringLiteral("TreeView1"));
    m_tree->setHeaderHidden(true);
    m_tree->setIndentation(33); // 500 twips
    m_tree->setRootIsDecorated(true);
    m_tree->setStyle(new TreeLinesStyle(m_tree));
    m_tree->setIconSize(QSize(16, 16));
    column->addWidget(m_tree, 1);
    connect(m_cmdRun, &QPushButton::clicked, this, &MAINMDI::cmdRun_Click);
    connect(m_txtPGID, &QLineEdit::returnPressed, this, &MAINMDI::cmdRun_Click);
    connect(m_tree, &QTreeWidget::itemClicked, this, &MAINMDI::onTreeClicked);
}

QLabel* MAINMDI::statusPanel(int index) const { return m_panels[qBound(1, index, 3) - 1]; }

void MAINMDI::showStatusOf(Screen* screen) {
    QWidget* panels = screen ? screen->statusPanels() : nullptr;
    if (panels == m_screenStatus) {
        return;
    }
    if (m_screenStatus) {
        statusBar()->removeWidget(m_screenStatus);
    }
    m_screenStatus = panels;
    for (QLabel* own : m_panels) {
        own->setVisible(!panels);
    }
    if (panels) {
        statusBar()->addWidget(panels, 1);
        panels->show();
    }
}

void MAINMDI::releaseStatusOf(Screen* screen) {
    if (screen && m_screenStatus && m_screenStatus == screen->statusPanels()) {
        showStatusOf(nullptr);
    }
}

QAction* MAINMDI::toolButton(ToolBarId bar, int index) const {
    return m_buttons[bar].value(index - 1, nullptr);
}

QAction* MAINMDI::menuAction(const QString& name) const {
    return findChild<QAction*>(name);
}

void MAINMDI::Menu_Display() {
    m_tree->clear();
    const Dialect& d = dialect();
    QString sql = QStringLiteral(" SELECT /* MAINMDI Menu_Display */  ") +
                  QStringLiteral("        PL.UPPROGID, PL.PROGID,  ") +
                  QStringLiteral("        CASE WHEN PL.GUBUN = 3 THEN ") +
                  d.cat({QStringLiteral("'('"),
                         QStringLiteral("RTRIM(") + d.toChar(d.toInt(QStringLiteral("PL.FORMNO"))) +
                             QStringLiteral(")"),
                         QStringLiteral("')'"), QStringLiteral("PL.HANNM")}) +
                  QStringLiteral(" ELSE PL.HANNM END  PROGNM, ") + QStringLiteral("        PL.GUBUN ");
    if (session().gsUserClass == QStringLiteral("S")) {
        sql += QStringLiteral("   FROM PROGLIST PL  ") + QStringLiteral("  WHERE 1 = 1 ") +
               QStringLiteral("    AND PL.USEYN = 'Y' ");
    } else {
        sql += QStringLiteral("   FROM C_USER_AUTH UA ") +
               QStringLiteral("        LEFT OUTER JOIN C_USER CU ON UA.COMPANY = CU.COMPANY AND "
                              "UA.USERID = CU.USERID AND UA.USEYN = 'Y' ") +
               QStringLiteral("        LEFT OUTER JOIN PROGLIST PL ON UA.PROGID = PL.PROGID AND "
                              "PL.USEYN = 'Y' ") +
               QStringLiteral("  WHERE UA.USEYN = 'Y' ") + QStringLiteral("    AND CU.COMPANY = ") +
               quoted(session().gsCompany) + QStringLiteral("    AND CU.USERID = ") +
               quoted(session().gsUserId);
    }
    sql += QStringLiteral("    AND PL.PROGID IS NOT NULL ") +
           QStringLiteral("  ORDER BY PL.GUBUN, PL.SYSID, PL.BIGID, PL.SMLID, PL.UPPROGID, PL.PROGID ");
    RecordSet rs;
    qint64 count = 0;
    if (!gfbSqlSelectDB(sql, rs, count) || count == 0) {
        gfsMessage(15);
        return;
    }
    QHash<QString, QTreeWidgetItem*> nodes;
    const QIcon group = picture(QStringLiteral("tree_group"), false);
    QIcon menu = picture(QStringLiteral("tree_menu_closed"), false);
    menu.addFile(QStringLiteral(":/icons/tree_menu_open.svg"), QSize(), QIcon::Selected);
    const QIcon program = picture(QStringLiteral("tree_program"), false);
    try {
        for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
            const QString key = rs.field(QStringLiteral("PROGID")).trimmed();
            const QString parentKey = rs.field(QStringLiteral("UPPROGID")).trimmed();
            const QString level = rs.field(QStringLiteral("GUBUN")).trimmed();
            QTreeWidgetItem* node = nullptr;
            if (level == QStringLiteral("1")) {
                node = new QTreeWidgetItem(m_tree);
            } else {
                QTreeWidgetItem* parent = nodes.value(parentKey);
                if (!parent) {
                    throw DbError(35601, QStringLiteral("Element not found: ") + parentKey);
                }
                node = new QTreeWidgetItem(parent);
            }
            node->setText(0, rs.field(QStringLiteral("PROGNM")).trimmed());
            node->setData(0, Qt::UserRole, key);
            const QString tag = level == QStringLiteral("1")   ? QString()
                                : level == QStringLiteral("2") ? QStringLiteral("M")
                                                                : QStringLiteral("P");
            node->setData(0, Qt::UserRole + 1, tag);
            node->setIcon(0, tag.isEmpty() ? group : tag == QStringLiteral("M") ? menu : program);
            nodes.insert(key, node);
        }
    } catch (const DbError& error) {
        gsErrorLog(error, objectName() + QStringLiteral(" : Menu_Display"), QString());
    }
    m_tree->expandAll();
}

int MAINMDI::screenWidth() const {
    if (m_screenWidth > 0) {
        return m_screenWidth;
    }
    return QGuiApplication::primaryScreen() ? QGuiApplication::primaryScreen()->geometry().width()
                                            : 1280;
}

int MAINMDI::childCount() const { return int(m_mdi->subWindowList().size()); }

void MAINMDI::unloadMainWindow() { close(); }

void MAINMDI::cmdRun_Click() {
    if (session().gsCompany.trimmed().isEmpty()) {
        gfsMessage(9);
        closeWithoutAsking();
        return;
    }
    const QString text = m_txtPGID->text().trimmed();
    if (text.isEmpty()) {
        return;
    }
    bool ok = false;
    const short number = text.toShort(&ok);
    // A text that is no number is a number not found.
    const ScreenInfo* info = ok ? findScreenByNumber(number) : nullptr;
    if (!info) {
        m_txtPGID->clear();
        return;
    }
    gsFormShow(info->name);
    const bool wide = screenWidth() >= 1024;
    m_picMenu->setVisible(wide);
    m_panelTag = wide ? QStringLiteral("ON") : QStringLiteral("OFF");
}

Screen* MAINMDI::openScreen(const QString& name) const {
    const auto windows = m_mdi->subWindowList();
    for (QMdiSubWindow* window : windows) {
        if (auto* screen = qobject_cast<Screen*>(window->widget()); screen && screen->objectName() == name) {
            return screen;
        }
    }
    return nullptr;
}

Screen* MAINMDI::gsFormShow(const QString& name) {
    WaitCursor wait;
    Screen* screen = openScreen(name);
    if (!screen) {
        const ScreenInfo* info = findScreenByName(name);
        if (!info) {
            return nullptr;
        }
        screen = createScreen(*info);
        QMdiSubWindow* frame = m_mdi->addSubWindow(screen);
        frame->setAttribute(Qt::WA_DeleteOnClose);
        frame->setWindowIcon(picture(QStringLiteral("tree_program"), false));
        screen->load();
    }
    auto* frame = qobject_cast<QMdiSubWindow*>(screen->parentWidget());
    frame->showMaximized();
    m_mdi->setActiveSubWindow(frame);
    screen->setFocus();
    screen->activateScreen();
    return screen;
}

void MAINMDI::onSubWindowActivated(QMdiSubWindow* window) {
    if (!window) {
        return;
    }
    if (auto* screen = qobject_cast<Screen*>(window->widget()); screen && screen->isLoaded()) {
        screen->activateScreen();
    }
}

void MAINMDI::onTreeClicked(QTreeWidgetItem* item) {
    if (!item || item->data(0, Qt::UserRole + 1).toString() != QStringLiteral("P")) {
        return;
    }
    m_txtPGID->setText(item->data(0, Qt::UserRole).toString().mid(5));
    cmdRun_Click();
    mnuMenu_Click();
}

void MAINMDI::mnuMenu_Click() {
    if (m_panelTag != QStringLiteral("ON")) {
        m_picMenu->show();
        m_panelTag = QStringLiteral("ON");
        m_txtPGID->clear();
        m_txtPGID->setFocus();
    } else if (childCount() > 0) {
        m_picMenu->hide();
        m_panelTag = QStringLiteral("OFF");
    }
}

void MAINMDI::gsToolBarClick(ToolBarId bar, const QString& key) {
    Q_UNUSED(bar)
    if (session().gsCompany.trimmed().isEmpty()) {
        gfsMessage(9);
        closeWithoutAsking();
        return;
    }
    QMdiSubWindow* current = m_mdi->currentSubWindow();
    if (!current) {
        // The main window itself is active: only "Exit" counts.
        if (key == QStringLiteral("Exit")) {
            unloadMainWindow();
        }
        return;
    }
    // No screen to drive: the old trap swallowed this silently.
    auto* screen = qobject_cast<Screen*>(session().gActiveForm.data());
    if (!screen) {
        return;
    }
    // While the screen's report runs its commands wait; Exit closes it, which cancels.
    if (screen->reportRunning() && key != QStringLiteral("Exit")) {
        return;
    }
    // A tool-bar click takes no focus: what is still being typed is committed first.
    screen->finishEditing();
    if (key == QStringLiteral("Search")) {
        screen->m_Search();
    } else if (key == QStringLiteral("Save")) {
        screen->m_Save();
    } else if (key == QStringLiteral("Delete")) {
        screen->m_Delete();
    } else if (key == QStringLiteral("Clear")) {
        screen->m_clear();
    } else if (key == QStringLiteral("Excel")) {
        screen->m_Excel();
    } else if (key == QStringLiteral("Print")) {
        screen->m_Print(1);
    } else if (key == QStringLiteral("Preview")) {
        screen->m_Print(2);
    } else if (key == QStringLiteral("Exit")) {
        screen->m_Close();
        session().gActiveForm = nullptr;
        if (childCount() == 0) {
            m_panelTag = QStringLiteral("OFF");
            mnuMenu_Click();
        } else if (auto* next = qobject_cast<Screen*>(m_mdi->currentSubWindow()
                                                           ? m_mdi->currentSubWindow()->widget()
                                                           : nullptr)) {
            next->activateScreen();
        }
    }
}

void MAINMDI::gsToolBarSet(ToolBarId bar, int mode, int first, int last) {
    const QList<QAction*>& buttons = m_buttons[bar];
    for (int i = 1; i <= buttons.size(); ++i) {
        bool enabled = buttons[i - 1]->isEnabled();
        switch (mode) {
        case 0:
            enabled = false;
            break;
        case 1:
            enabled = true;
            break;
        case 2:
            if (i >= first && i <= last) {
                enabled = false;
            }
            break;
        case 3:
            if (i >= first && i <= last) {
                enabled = true;
            }
            break;
        default:
            break;
        }
        buttons[i - 1]->setEnabled(enabled);
        if (const char* twin = kTwins[bar][i - 1]) {
            if (QAction* action = menuAction(QString::fromLatin1(twin))) {
                action->setEnabled(enabled);
            }
        }
    }
}

void MAINMDI::setToolBarsFor(const QString& screenName) {
    gsToolBarSet(TobToolBar1, 1);
    gsToolBarSet(TobToolBar2, 1);
    const ToolBarRanges ranges = toolBarRanges(screenName);
    if (ranges.bar1First > 0) {
        gsToolBarSet(TobToolBar1, 2, ranges.bar1First, ranges.bar1Last);
    }
    if (ranges.bar2First > 0) {
        gsToolBarSet(TobToolBar2, 2, ranges.bar2First, ranges.bar2Last);
    }
}

bool MAINMDI::gfbChangeCheck(const QString& what) {
    if (childCount() + 1 < 3) {
        return true;
    }
    if (gfsAsk(what + QStringLiteral("을 변경하시면 열여있는 폼이 모두 닫게 됩니다.") +
                           QStringLiteral("\r") + QStringLiteral("그래도 ") + what +
                           QStringLiteral("을 변경하시겠습니까?")) != QStringLiteral("OK")) {
        return false;
    }
    gsUnloadForms();
    return true;
}

void MAINMDI::closeWithoutAsking() {
    m_ask = false;
    close();
}

void MAINMDI::closeEvent(QCloseEvent* event) {
    if (m_ask && gfsMessage(99) != QStringLiteral("OK")) {
        event->ignore();
        return;
    }
    m_ask = true;
    gsUnloadForms();
    gsUserLog(session().gsUserId, this, m_startTime);
    session().gActiveForm = nullptr;
    event->accept();
}

void gsUnloadForms() {
    MAINMDI* main = mainWindow();
    if (!main) {
        return;
    }
    const QList<QMdiSubWindow*> windows = main->mdiArea()->subWindowList(QMdiArea::CreationOrder);
    for (auto it = windows.crbegin(); it != windows.crend(); ++it) {
        (*it)->close();
    }
}
