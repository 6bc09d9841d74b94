# SPDX-License-Identifier: MIT
# The melody is written by our own tool and lies beside the program file.
set(melody ${PROJECT_BINARY_DIR}/info.mid)
add_custom_command(
    OUTPUT ${melody}
    COMMAND melodie ${melody}
    DEPENDS melodie
    COMMENT "Writing info.mid"
    VERBATIM)
add_custom_target(info_mid ALL DEPENDS ${melody})
