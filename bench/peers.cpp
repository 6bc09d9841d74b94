// SPDX-License-Identifier: MIT
// Whole processes on the same file: this program with its window, and what a user would pick
// instead from Debian's packages.
#include "data.h"
#include "goals.h"
#include "process.h"

#include <filesystem>
#include <functional>

namespace bench {

namespace {

/// Another way to count the numbers of a file. The output holds "seventeen=" with that number's
/// count.
struct Peer {
    std::string name;
    std::string command; ///< what has to be installed; empty for this program itself
    std::int64_t most; ///< coups that it can take, or that anybody would wait for
    std::function<std::vector<std::string>(const std::string& file)> arguments;
};

const std::string awkScript = "{ ++n[$1 + 0] } END { for (z = 0; z < 37; ++z) s += n[z]; "
                              "print \"rows=\" s \" seventeen=\" n[17] }";

const std::string pythonScript = "import collections, sys\n"
                                 "c = collections.Counter(int(l) for l in open(sys.argv[1]))\n"
                                 "print(f'rows={sum(c.values())} seventeen={c[17]}')\n";

std::vector<std::string> sqlite(const std::string& file) {
    return {"sqlite3", ":memory:", "-cmd", "create table coups(zahl)", "-cmd",
        ".import '" + file + "' coups",
        "select 'seventeen=' || count(*) from coups where trim(zahl, ' ' || char(13)) = '17'; "
        "select trim(zahl, ' ' || char(13)) z, count(*) from coups group by z;"};
}

/// A sheet opens the file and saves it again; counting would come on top.
std::vector<std::string> calc(const std::string& file) {
    return {"soffice", "--headless", "--convert-to", "ods",
        "--infilter=Text - txt - csv (StarCalc):44,34,76,1", "--outdir", file + ".calc", file};
}

/// The sheet tells no count and reports success even where it couldn't read a file.
bool sheetMade(const std::string& file) {
    return std::filesystem::remove_all(file + ".calc") > 1;
}

std::vector<Peer> allPeers() {
    return {
        {"mawk", "mawk", 100 * Million,
            [](const std::string& file) {
                return std::vector<std::string>{"mawk", awkScript, file};
            }},
        {"sqlite3", "sqlite3", 10 * Million, sqlite},
        {"python3", "python3", 10 * Million,
            [](const std::string& file) {
                return std::vector<std::string>{"python3", "-c", pythonScript, file};
            }},
        {"LibreOffice Calc", "soffice", Million, calc},
        {"QTableWidget", "", Million,
            [](const std::string& file) {
                return self({"--tabelle", file});
            }},
    };
}

void compare(Report& report, const Peer& peer, const Data& data) {
    std::vector<double> peaks;
    std::vector<double> ownPeaks;
    const auto seventeen = static_cast<double>(data.counts[17]);
    const Comparison times = interleaved(
        Rounds,
        [&] {
            const Outcome outcome = runSelf({"--laden", data.file});
            report.check(outcome.good && valueOf(outcome, "seventeen") == seventeen, "own process");
            ownPeaks.push_back(outcome.peak);
            return outcome.cpu;
        },
        [&] {
            const Outcome outcome = run(peer.arguments(data.file));
            report.check(outcome.good
                    && (peer.command == "soffice" ? sheetMade(data.file)
                                                  : valueOf(outcome, "seventeen") == seventeen),
                peer.name + " counts the same");
            peaks.push_back(outcome.peak);
            return outcome.cpu;
        });
    report.line(text("%-18s %7s  %8.3f s %8.1f MiB   ours %6.3f s %6.1f MiB   ratio %7.4f",
        peer.name.c_str(), shortNumber(data.coups).c_str(), times.theirs, median(peaks), times.ours,
        median(ownPeaks), times.ratio()));
}

} // namespace

void peers(Report& report, const Extent& extent) {
    report.section("Whole processes, start and window included (processor time, peak memory)");
    for (const Peer& peer : allPeers()) {
        if (!peer.command.empty() && !installed(peer.command)) {
            report.line(peer.name + ": not installed, skipped");
            continue;
        }
        for (std::int64_t coups = 100 * Thousand; coups <= std::min(peer.most, extent.longest / 10);
             coups *= 10)
            compare(report, peer, dataOf(coups));
    }
}

} // namespace bench
