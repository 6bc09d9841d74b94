// SPDX-License-Identifier: MIT
// Saves and loads real files through the program's own procedures, for files.py.
//
//   files_trial save FILE COUNT NUMBER   saves COUNT coups of NUMBER
//   files_trial load FILE                loads; prints how many coups there are, and their sum
//
// Every message that a user would see is printed.
#include "desktop/surroundings.h"
#include "support/stage.h"

#include <iostream>

int main(int argc, char* argv[]) {
    const std::vector<std::string> words(argv, argv + argc);
    support::Stage stage;
    desktop::Files files;
    platform::Platform platform{stage.events, stage.dialogs, files, stage.clock, stage.media,
        stage.registry, stage.processes};
    const auto press = [&](int button) {
        stage.dialogs.chosen = words[2];
        Frm_Main::xpButton_Click(stage.program, platform, button);
    };
    if (argc == 5 && words[1] == "save") {
        std::string lines;
        for (long count = std::stol(words[3]); count > 0; --count)
            lines += words[4] + '\n';
        stage.load(lines);
        std::cout << "begun\n" << std::flush;
        press(3);
        std::cout << "ended\n";
    } else if (argc == 3 && words[1] == "load") {
        press(2);
        std::int64_t sum = 0;
        for (const int number : support::numbers(stage.program))
            sum += number;
        std::cout << stage.main.Coup << ' ' << sum << '\n';
    } else {
        return 2;
    }
    for (const support::Message& message : stage.dialogs.messages)
        std::cout << message.text << '\n';
    return stage.main.Enabled && !stage.main.inHandler ? 0 : 1;
}
