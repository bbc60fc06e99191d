// Store benchmark: each operation of the list store, including its save to
// disk, against writing the same bytes with an atomic replace in the same
// folder, measured in the same run. Figures are ratios so that they mean the
// same on a fast or a slow machine.
#include "model/ItemsCodec.h"
#include "model/ListItems.h"
#include "model/UndoStack.h"
#include "platform/preferences/SqlitePreferencesStore.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSaveFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>

namespace {

double percentile(std::vector<double> v, double p)
{
    std::sort(v.begin(), v.end());
    const size_t i = std::min(v.size() - 1, size_t(p * double(v.size() - 1) + 0.5));
    return v[i];
}

double median(const std::vector<double> &v)
{
    return percentile(v, 0.5);
}

double msSince(const QElapsedTimer &t)
{
    return double(t.nsecsElapsed()) / 1e6;
}

void rawWrite(const QString &path, const QByteArray &bytes)
{
    QSaveFile f(path);
    if (f.open(QIODevice::WriteOnly)) {
        f.write(bytes);
        f.commit();
    }
}

void seed(const QString &dir, int total)
{
    SqlitePreferencesStore prefs(dir);
    prefs.setStringList(PreferenceKeys::listNames, ListItems::defaultListNames());
    QList<ItemList> lists(12);
    auto *rng = QRandomGenerator::global();
    for (int i = 0; i < total; ++i) {
        ListItem item = ListItem::create(QStringLiteral("Item %1 buy %2 things").arg(i).arg(rng->bounded(1000)));
        item.state = rng->bounded(3) == 0 ? ListItemState::done : ListItemState::toDo;
        lists[i % 12].append(item);
    }
    prefs.setData(PreferenceKeys::items, ItemsCodec::encode(lists));
}

struct Result
{
    std::vector<double> op;
    std::vector<double> raw;
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const std::vector<int> sizes = {1000, 10000, 100000};
    const std::vector<std::string> ops = {"add",  "update-text", "set-state", "set-pinned",
                                          "move", "sort-text",   "delete",    "undo-delete"};
    // List operations write the names and the items in one transaction.
    const std::vector<std::string> listOps = {"add-list", "rename-list", "move-list", "delete-list", "undo-list"};
    std::map<int, std::map<std::string, Result>> results;
    std::map<int, double> loadMs;
    auto *rng = QRandomGenerator::global();

    for (int size : sizes) {
        QTemporaryDir dir;
        seed(dir.path(), size);
        const QString rawPath = dir.filePath(QStringLiteral("raw-baseline.bin"));

        std::vector<double> loads;
        for (int i = 0; i < 7; ++i) {
            QElapsedTimer t;
            t.start();
            SqlitePreferencesStore prefs(dir.path());
            ListItems store(prefs);
            loads.push_back(msSince(t));
        }
        loadMs[size] = median(loads);

        SqlitePreferencesStore prefs(dir.path());
        ListItems store(prefs);
        UndoStack undo;
        const int reps = size >= 100000 ? 25 : 120;
        for (int rep = 0; rep < reps; ++rep) {
            for (const std::string &op : ops) {
                const qint64 list = rep % 12;
                const ItemList &items = store.items()[list];
                const qsizetype pos = rng->bounded(int(items.size()));
                const QUuid id = items[pos].id;
                std::function<void()> run;
                if (op == "add")
                    run = [&] { store.addItem(ListItem::create(QStringLiteral("New thing to do")), list); };
                else if (op == "update-text")
                    run = [&] { store.updateItemText(id, list, QStringLiteral("Edited %1").arg(rep)); };
                else if (op == "set-state")
                    run = [&] { store.setState(ListItemState::done, id, list); };
                else if (op == "set-pinned")
                    run = [&] { store.setPinned(rep % 2 == 0, id, list); };
                else if (op == "move")
                    run = [&] { store.moveItems({pos}, rng->bounded(int(items.size())), list); };
                else if (op == "sort-text")
                    run = [&] { store.sortItems(list, rep % 2 == 0, true); };
                else if (op == "delete")
                    run = [&] {
                        undo.push(UndoActions::DeleteItem{list, pos, store.items()[list][pos]});
                        store.deleteItems({pos}, list);
                    };
                else
                    run = [&] { undo.undo(store); };

                QElapsedTimer t;
                t.start();
                run();
                results[size][op].op.push_back(msSince(t));

                // The baseline: the same bytes, written the same atomic way.
                const QByteArray bytes = *prefs.data(PreferenceKeys::items);
                t.restart();
                rawWrite(rawPath, bytes);
                results[size][op].raw.push_back(msSince(t));
            }
            for (const std::string &op : listOps) {
                // A new empty list comes and goes at 0; the seeded ones only swap.
                const qint64 list = 1 + rep % 10;
                std::function<void()> run;
                if (op == "add-list")
                    run = [&] { store.addList(); };
                else if (op == "rename-list")
                    run = [&] { store.renameList(0, QStringLiteral("Renamed %1").arg(rep)); };
                else if (op == "move-list")
                    run = [&] { store.moveList(list, list + 1); };
                else if (op == "delete-list")
                    run = [&] {
                        undo.push(UndoActions::DeleteList{0, store.listNames()[0], store.items()[0]});
                        store.deleteList(0);
                    };
                else
                    run = [&] { undo.undo(store); };
                QElapsedTimer t;
                t.start();
                run();
                results[size][op].op.push_back(msSince(t));
                const QByteArray bytes = *prefs.data(PreferenceKeys::items);
                t.restart();
                rawWrite(rawPath, bytes);
                results[size][op].raw.push_back(msSince(t));
            }
            store.deleteList(0);
        }
    }

    std::printf("%-8s %-12s %10s %10s %10s %8s\n", "items", "operation", "median-ms", "p99-ms", "raw-ms", "ratio");
    double worstRatio100k = 0;
    double worstP99At10k = 0;
    double worstListP99At10k = 0;
    for (int size : sizes) {
        for (const std::string &op : ops) {
            const Result &r = results[size][op];
            const double ratio = median(r.op) / median(r.raw);
            const double p99 = percentile(r.op, 0.99);
            std::printf("%-8d %-12s %10.2f %10.2f %10.2f %8.2f\n", size, op.c_str(), median(r.op), p99,
                        median(r.raw), ratio);
            if (size == 100000)
                worstRatio100k = std::max(worstRatio100k, ratio);
            if (size == 10000)
                worstP99At10k = std::max(worstP99At10k, p99);
        }
        for (const std::string &op : listOps) {
            const Result &r = results[size][op];
            const double p99 = percentile(r.op, 0.99);
            std::printf("%-8d %-12s %10.2f %10.2f %10.2f %8.2f\n", size, op.c_str(), median(r.op), p99,
                        median(r.raw), median(r.op) / median(r.raw));
            if (size == 10000)
                worstListP99At10k = std::max(worstListP99At10k, p99);
        }
    }
    for (int size : sizes)
        std::printf("load %-7d median %.1f ms\n", size, loadMs[size]);
    std::printf("store-op-vs-raw-write-100k: %.2f\n", worstRatio100k);
    std::printf("store-op-p99-10k-ms: %.2f\n", worstP99At10k);
    std::printf("store-list-op-p99-10k-ms: %.2f\n", worstListP99At10k);
    std::printf("store-load-100k-ms: %.1f\n", loadMs[100000]);
    return 0;
}
