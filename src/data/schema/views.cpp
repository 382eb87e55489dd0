#include "data/schema/views.h"

namespace {

QStringList withSizes(QStringList columns, const QString& prefix) {
    for (int n = 1; n <= 24; ++n) {
        columns << prefix + QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
    }
    return columns;
}

ViewDef view(const char* name, QStringList columns) {
    const QString viewName = QString::fromLatin1(name);
    return ViewDef{viewName, std::move(columns), sqliteViewBody(viewName),
                   sqlServerViewBody(viewName)};
}

} // namespace

QString eachSize(const QString& pattern, const QString& separator) {
    QStringList parts;
    for (int n = 1; n <= 24; ++n) {
        parts << QString(pattern).replace(QStringLiteral("%1"),
                                          QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0')));
    }
    return parts.join(separator);
}

const std::vector<ViewDef>& schemaViews() {
    static const std::vector<ViewDef> views = [] {
        const QStringList sizeList =
            withSizes({QStringLiteral("COMPANY"), QStringLiteral("STORECD"),
                       QStringLiteral("SCHOOLCD"), QStringLiteral("SUDIVIDE"), QStringLiteral("CD"),
                       QStringLiteral("BSYYYY"), QStringLiteral("SIZETAB")},
                      QStringLiteral("C"));
        return std::vector<ViewDef>{
            view("VIW_BSYYYY", {QStringLiteral("BSYYYY")}),
            view("VIW_SCHUNIFOMSIZE", sizeList),
            view("VIW_SCHUNIFOMSIZE2", sizeList),
            view("VIW_T_INBOUND",
                 withSizes({QStringLiteral("COMPANY"), QStringLiteral("STORECD"),
                            QStringLiteral("SCHOOLCD"), QStringLiteral("SUDIVIDE"),
                            QStringLiteral("INYYYY"), QStringLiteral("UNIFORMCD"),
                            QStringLiteral("ORDERDT"), QStringLiteral("OUTBOUNDSTORE"),
                            QStringLiteral("ORDERSEQ")},
                           QStringLiteral("I"))),
            view("VIW_STOCKQTY_TEMP",
                 withSizes({QStringLiteral("COMPANY"), QStringLiteral("STORECD"),
                            QStringLiteral("SCHOOLCD"), QStringLiteral("SUDIVIDE"),
                            QStringLiteral("YYYY"), QStringLiteral("UNIFORMCD")},
                           QStringLiteral("C"))),
        };
    }();
    return views;
}

QString viewDdl(const ViewDef& view, bool sqlServer) {
    return QStringLiteral("CREATE VIEW ") + view.name + QStringLiteral(" (") +
           view.columns.join(QStringLiteral(", ")) + QStringLiteral(") AS") +
           (sqlServer ? view.sqlServerBody : view.sqliteBody) + QStringLiteral("\n");
}
