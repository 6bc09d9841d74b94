// SPDX-License-Identifier: MIT
// The sorted view on screen over a permanence of any length.
#pragma once

#include "data.h"
#include "stage.h"
#include "window/grid/grid_view.h"

#include <QCoreApplication>

#include <memory>

namespace bench {

/// Shows the family with the most columns.
struct GridStage {
    explicit GridStage(std::int64_t coups) {
        constexpr int mostColumns = 6;
        stage.family(mostColumns);
        stage.load(dataOf(coups).file);
        view = std::make_unique<window::GridView>(stage.view(), &panel);
        panel.resize(500, 700);
        panel.show();
        QCoreApplication::processEvents();
    }

    void frame() {
        view->refresh();
        view->viewport()->update();
    }
    void append() {
        stage.click(static_cast<int>(++clicks * 7 % 37));
        view->refresh();
    }
    void undo() {
        stage.undo();
        view->scrollTo(stage.view().RowCount());
    }

    Stage stage;
    QWidget panel;
    std::unique_ptr<window::GridView> view;
    std::int64_t clicks = 0;
};

} // namespace bench
