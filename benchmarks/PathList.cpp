#include "Bench.h"

#include "CBPPathDropdWnd.h"
#include "Util.h"

// Filling a path list: what a row costs must not depend on how many there are already.
namespace {

// Microseconds a row.
double rowTime(int rows)
{
    CBPPathDropdWnd list(nullptr);
    list.SetFixedWidth(400);
    ComboxItem item;
    item.icon = Util::getResFullPath(QStringLiteral("../res/icon_user.png"));
    item.freeBytes = 1LL << 30;
    item.totalBytes = 1LL << 40;
    const double time = Bench::time([&] {
        for (int i = 0; i < rows; ++i) {
            item.path = QStringLiteral("/home/someone/a folder with a name/%1").arg(i);
            list.AppendItem(item);
        }
    });
    return time / rows;
}

} // namespace

void benchPathList(Bench &bench)
{
    QVector<Bench::Variant> variants;
    for (const int rows : {4000, 1000})
        variants.append({QStringLiteral("%1 rows").arg(rows), [rows] { return rowTime(rows); }});
    bench.compare(QStringLiteral("path list: filling"), QStringLiteral("us a row"), variants, {1.25});
}
