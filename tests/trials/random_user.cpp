// SPDX-License-Identifier: MIT
// A user who does anything at random in the real windows, and a bookkeeper who checks after every
// action that all of the program still agrees with itself and with a plain second program.
//
//   random_user ACTIONS SEED
#include "look/style.h"
#include "look/text.h"
#include "stats/counters.h"
#include "support/reference.h"
#include "support/stage.h"
#include "window/application.h"
#include "window/grid/grid_view.h"
#include "window/tableau/pad_view.h"
#include "window/tableau/tableau_view.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <fstream>
#include <random>

namespace {

namespace plan = forms::plan;
using plan::Name;

constexpr std::size_t LongPermanence = 400; // the user resets then, for every row is looked at
constexpr int MostLooks = 5000; // at a dialog that no answer closes
constexpr int LongSeries = 3'000'000; // long enough to be cancelled

class User : public QObject {
public:
    User(int actions, unsigned seed) : left_(actions), random_(seed) {
        connect(&timer_, &QTimer::timeout, this, &User::tick);
        timer_.start(0);
        // A timer of its own: one that is at work isn't served again by the loops of dialogs.
        connect(&answers_, &QTimer::timeout, this, &User::answer);
        answers_.start(1);
    }

    bool failed = false;

private:
    void tick() {
        main_ = window<window::MainWindow>();
        if (!main_ || !main_->isVisible())
            return;
        pad_ = main_->findChild<window::PadView*>();
        check();
        if (failed || left_-- == 0) {
            timer_.stop();
            main_->close();
            return;
        }
        waited_ = 0;
        accepted_ = false;
        act();
    }

    template <class Window>
    Window* window() const {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = dynamic_cast<Window*>(widget))
                return found;
        return nullptr;
    }
    template <class Widget = QWidget>
    Widget* find(Name name, int index) const {
        return main_->findChild<Widget*>(look::controlName(name, index));
    }
    int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(random_); }
    const forms::Program& program() const { return pad_->program(); }

    void press(Name name, int index) {
        main_->refresh(); // it may still show the run that has just ended
        QTest::mouseClick(find(name, index), Qt::LeftButton, {}, QPoint(6, 6));
    }
    void mouse(QEvent::Type type, int number) {
        const QPoint at = pad_->cellRect(number).center();
        QMouseEvent event(type, at, pad_->mapToGlobal(at), Qt::LeftButton,
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(pad_, &event);
    }

    void act() {
        action_ = below(20);
        switch (reference_.coups.size() > LongPermanence ? 7 : action_) {
        case 0:
        case 1:
        case 2:
        case 3:
            return clicks(1 + below(8));
        case 4: {
            const int number = pad_->current();
            QTest::keyClick(pad_, below(2) == 0 ? Qt::Key_Space : Qt::Key_Return);
            reference_.coup(number);
            return QTest::keyClick(
                pad_, static_cast<Qt::Key>(Qt::Key_Left + below(4))); // any arrow
        }
        case 5:
        case 6:
            for (int i = 1 + below(4); i > 0; --i) {
                press(Name::xpButton, 0);
                reference_.undo();
            }
            return;
        case 7:
            if (reference_.coups.size() < LongPermanence / 2)
                return clicks(2);
            press(Name::xpButton, 1);
            return reference_.reset();
        case 8:
        case 9:
            QTest::keyClick(find(Name::xpCombo, 0), below(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
            if (const int chosen = find<QComboBox>(Name::xpCombo, 0)->currentIndex();
                chosen != reference_.family)
                reference_.choose(chosen);
            return;
        case 10:
            press(Name::Check, 0);
            return reference_.toggleCodes();
        case 11:
            press(Name::Check, 1);
            return reference_.toggleLines();
        case 12:
        case 13:
            return mark(1 + below(2));
        case 14: {
            const int box = 1 + below(2);
            press(Name::xpButton, 3 + box);
            return reference_.clearMark(box);
        }
        case 15:
            return draw();
        case 16:
            return load();
        case 17:
            return save();
        case 18:
            main_->menuBar()->actions().constLast()->trigger();
            return;
        default:
            main_->resize(200 + below(1200), 150 + below(900));
            if (auto* info = window<window::InfoWindow>(); info && info->isVisible())
                info->close();
        }
    }

    void clicks(int count) {
        for (; count > 0; --count) {
            const int number = below(37);
            mouse(QEvent::MouseButtonPress, number);
            mouse(QEvent::MouseButtonRelease, number);
            reference_.coup(number);
            if (below(3) > 0)
                continue;
            mouse(QEvent::MouseButtonDblClick, number);
            mouse(QEvent::MouseButtonRelease, number);
            reference_.coup(number);
        }
        scrolled_ = true;
    }

    void mark(int box) {
        value_ = below(6) == 0 ? 1001 : below(6);
        cancels_ = below(6) == 0;
        messages_ = value_ > 1000 && !cancels_ ? 1 : 0;
        press(Name::Text, box);
        if (value_ > 1000 && !cancels_)
            reference_.clearMark(box);
        else
            reference_.mark(box, cancels_ ? 0 : value_); // nothing typed reads as 0
    }

    void draw() {
        const bool stops = below(20) == 0;
        const int count = stops ? LongSeries : below(60);
        auto* box = find<QLineEdit>(Name::Text, 0);
        box->clear();
        QTest::keyClicks(box, QString::number(count));
        cancels_ = stops;
        QTest::keyClick(box, Qt::Key_Return);
        const auto taken = program().Frm_Main.Coup - std::ssize(reference_.coups);
        demand(stops ? taken < LongSeries : taken == count, "as many coups as were asked for");
        if (!stops)
            return adopt();
        press(Name::xpButton, 1); // too many to look at each
        reference_.reset();
        if (taken > 0)
            reference_.plein = program().Frm_Main.Plein;
    }

    /// Takes over what the store holds beyond the second program's coups.
    void adopt() {
        const auto all = support::numbers(program());
        for (std::size_t i = reference_.coups.size(); i < all.size(); ++i)
            reference_.coup(all[i]);
    }

    void load() {
        file_ = folder_.filePath(QStringLiteral("laden.txt"));
        cancels_ = below(5) == 0;
        std::ofstream stream(file_.toStdString());
        for (int i = below(50); i > 0; --i) {
            const int number = below(45);
            stream << number << (below(9) == 0 ? " x\n" : "\r\n") << std::flush;
            wanted_.push_back(number);
        }
        stream.close();
        wanted_.clear();
        std::ifstream back(file_.toStdString());
        for (std::string line; std::getline(back, line);)
            if (line.find('x') == std::string::npos && std::stoi(line) <= 36)
                wanted_.push_back(std::stoi(line));
        press(Name::xpButton, 2);
        if (!cancels_)
            for (const int number : wanted_)
                reference_.coup(number);
    }

    void save() {
        file_ = folder_.filePath(QStringLiteral("gespeichert%1.txt").arg(below(3)));
        cancels_ = below(5) == 0;
        const auto content = [this] {
            std::ifstream stream(file_.toStdString(), std::ios::binary);
            return std::string(std::istreambuf_iterator<char>(stream), {});
        };
        std::string wanted;
        for (const int number : reference_.coups)
            wanted += " " + std::to_string(number) + " \r\n";
        const std::string old = content();
        press(Name::xpButton, 3);
        demand(content() == (cancels_ ? old : wanted), "what was saved");
    }

    /// Answers whatever is open while an action is under way.
    void answer() {
        if (auto* progress = window<window::ProgressWindow>(); progress && cancels_)
            progress->findChild<QPushButton*>()->click();
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && ++waited_ > MostLooks) {
            demand(false, modal->metaObject()->className());
            std::exit(1);
        }
        if (auto* prompt = qobject_cast<QInputDialog*>(modal)) {
            prompt->setTextValue(QString::number(value_));
            cancels_ ? prompt->reject() : prompt->accept();
        } else if (auto* files = qobject_cast<QFileDialog*>(modal)) {
            if (cancels_)
                return files->reject();
            auto* name = files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            files->activateWindow();
            name->setFocus(); // or the dialog puts the name beside the one selected before
            if (!name->hasFocus())
                return;
            name->setText(file_);
            if (!std::exchange(accepted_, true)) // later, for it may ask a question of its own
                QMetaObject::invokeMethod(files, "accept", Qt::QueuedConnection);
        } else if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            if (box->buttons().size() == 1)
                demand(messages_-- > 0, box->text().toUtf8().constData());
            for (QAbstractButton* button : box->buttons())
                if (button->text() == QStringLiteral("Ersetzen") || box->buttons().size() == 1)
                    return button->click();
        }
    }

    void demand(bool holds, const char* what) {
        if (holds || failed)
            return;
        failed = true;
        std::printf("Fault with %d actions to go, after action %d: %s\n", left_, action_, what);
    }

    void check() {
        main_->refresh();
        const forms::MainForm& form = program().Frm_Main;
        const auto is = support::picture(program());
        const auto wanted = reference_.picture();
        for (std::size_t i = 0; i < std::max(is.size(), wanted.size()) && !failed; ++i)
            if (i >= is.size() || i >= wanted.size() || is[i] != wanted[i])
                demand(false,
                    ((i < is.size() ? is[i] : "")
                        + "\n wanted: " + (i < wanted.size() ? wanted[i] : ""))
                        .c_str());
        demand(form.Grid[0].RowCount() == form.Coup && form.Grid[1].RowCount() == form.Coup,
            "rows equal coups");
        demand(form.Enabled && !form.inHandler && !program().Frm_Progressbar.Visible,
            "no run is under way");
        support::Reference fresh;
        fresh.asCodes = reference_.asCodes;
        fresh.coups = reference_.coups;
        for (std::size_t row = 1; row <= fresh.coups.size(); ++row)
            for (std::size_t j = 2; j <= 16; ++j)
                demand(reference_.view[row - 1].text[j]
                        == support::marks(
                            reference_.family, reference_.asCodes, fresh.coups[row - 1])[j],
                    "the view equals a fresh placement");
        checkWindow();
    }

    /// What the windows show is what the models hold.
    void checkWindow() {
        auto* tableau = main_->findChild<window::TableauView*>();
        using window::TableauView;
        for (int i = 0; i < TableauView::LabelCount; ++i) {
            const auto& label = plan::CounterLabels[static_cast<std::size_t>(i)];
            demand(tableau->itemText(i).toStdString()
                    == M_Chancen::captionOf(program(), label.name, label.index),
                "a label equals its counter");
        }
        for (int n = 0; n <= 36; ++n)
            demand(tableau->itemText(TableauView::FirstBadge + n).toLongLong()
                    == std::count(reference_.coups.begin(), reference_.coups.end(), n),
                "a badge equals a recount");
        demand(find<QLabel>(Name::Label, 4)->text().toStdString()
                == M_Chancen::captionOf(program(), Name::Label, 4),
            "the label of fallen numbers");
        for (int box : {1, 2})
            demand(find<QLineEdit>(Name::Text, box)->text().toStdString()
                    == reference_.box[static_cast<std::size_t>(box)],
                "a marking box");
        const auto* grid = main_->findChild<window::GridView*>();
        const std::int64_t rows = program().Frm_Main.Coup;
        demand(grid->top() >= 0 && grid->top() <= std::max<std::int64_t>(rows - 1, 0),
            "the first row in view");
        if (std::exchange(scrolled_, false))
            demand(!grid->cellRect(rows - 1, 1).isNull(), "the new row is in view");
        demand(
            find<QComboBox>(Name::xpCombo, 0)->currentIndex() == reference_.family, "the family");
    }

    int left_;
    std::mt19937 random_;
    QTimer timer_;
    QTimer answers_;
    QTemporaryDir folder_;
    window::MainWindow* main_ = nullptr;
    window::PadView* pad_ = nullptr;
    support::Reference reference_;
    bool scrolled_ = false;
    bool cancels_ = false;
    int value_ = 0;
    int messages_ = 0;
    int action_ = -1;
    int waited_ = 0;
    bool accepted_ = false;
    QString file_;
    std::vector<int> wanted_;
};

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 3)
        return 2;
    QApplication application(argc, argv);
    look::applyStyle(application);
    window::Application kestrelwood("0.1.0");
    User user(std::stoi(argv[1]), static_cast<unsigned>(std::stoul(argv[2])));
    const int code = kestrelwood.run();
    std::printf("random user: %s actions, %s, exit code %d, seed %s\n", argv[1],
        user.failed ? "a fault" : "all invariants held", code, argv[2]);
    return user.failed ? 1 : code;
}
