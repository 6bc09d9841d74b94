// SPDX-License-Identifier: MIT
// The toolkit's table widget with the rows of a permanence, as a program would have it that knew
// nothing better.
#include "data.h"
#include "goals.h"
#include "look/style.h"
#include "process.h"
#include "stage.h"

#include <QHeaderView>
#include <QTableWidget>

#include <cstdio>

namespace bench {

int fillTableWidget(const std::string& file) {
    constexpr int columns = 16;
    Stage stage;
    stage.family(6);
    stage.load(file);
    const controls::Grid& view = stage.view();
    QTableWidget table(static_cast<int>(view.RowCount()), columns);
    table.verticalHeader()->hide();
    std::int64_t items = 0;
    for (int row = 0; row < table.rowCount(); ++row) {
        const controls::RowPattern& pattern = view.pattern(view.patternOf(row + 1));
        for (int column = 0; column < columns; ++column) {
            const auto color = pattern.CellColor(column + 1);
            const std::string_view text = pattern.Cell(column + 1);
            if (column > 0 && text.empty() && !color)
                continue;
            auto* item
                = new QTableWidgetItem(column == 0 ? QString::number(row + 1) : look::toText(text));
            if (color)
                item->setBackground(look::toColor(*color));
            table.setItem(row, column, item);
            ++items;
        }
    }
    table.resize(500, 700);
    table.show();
    table.scrollToBottom();
    QCoreApplication::processEvents();
    std::printf("rows=%d items=%lld seventeen=%lld resident=%.0f\n", table.rowCount(),
        static_cast<long long>(items), static_cast<long long>(stage.counters()[17]),
        ownMemory("VmRSS"));
    std::fflush(stdout);
    std::_Exit(0); // taking millions of items down again would count against it
}

} // namespace bench
