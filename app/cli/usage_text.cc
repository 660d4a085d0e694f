#include "usage_text.h"

#include "platform/program_info.h"

namespace tessaly::cli {

std::string UsageText() {
  return "usage: tessaly-cli [OPTION]... [FILE]... [SWITCH]... [-- FILE...]\n"
         "       tessaly-cli [OPTION]... --command-line TEXT\n"
         "\n"
         "Renames files without a window. Each FILE goes into the wizard's list as\n"
         "it is (any byte a name can hold), made absolute; missing files, folders\n"
         "and repeats are left out. A word is a SWITCH only when it is one of these\n"
         "in full, letter case counting, and no file or folder of that name exists:\n"
         "  /settings:NAME       tick an option: ShortExtension, LongExtension,\n"
         "                       RemoveDoubleSpace, RemoveExtraSpaces, Capitalize,\n"
         "                       RemoveUnderscores, LowerCase, DontAllowSpaces,\n"
         "                       FixSpacing, RemoveNumbers, UpperCase, ExampleFiles,\n"
         "                       IncludePaths, UnwantedFormatting\n"
         "  /placementN:VALUE    placement N (1 to 6), e.g. /placement2:\"(none)\";\n"
         "                       VALUE holds no double quote and no switch\n"
         "  /step:N              run the wizard's steps 1 to N (3 previews, 4 renames)\n"
         "  /DefineUnwantedFormatting, /show, /hide, /exit\n"
         "Any other word that looks like a switch (\"/\", a name, perhaps \":\") is\n"
         "refused. With files and no switch the wizard stops on File Selection.\n"
         "\n"
         "Options:\n"
         "  -n, --dry-run        show what would be renamed, old -> new, the new path\n"
         "                       in colour where it clashes; rename nothing, store\n"
         "                       no setting\n"
         "      --json           write the change log as JSON Lines: one object per\n"
         "                       file with \"old\", \"new\" (full paths), \"outcome\" and\n"
         "                       \"code\"\n"
         "      --files-from F   take files from F, one a line (\"-\": standard input);\n"
         "                       they follow the files given as words\n"
         "  -0, --null           names in --files-from end with a NUL byte, as\n"
         "                       find -print0 writes them\n"
         "      --command-line TEXT  hand TEXT to the wizard unchanged, as one command\n"
         "                       line: files joined by \";\" before the switches\n"
         "  --                   every word behind it is a file\n"
         "      --undo [RUN]     take back the last run not yet undone, or the run\n"
         "                       RUN as --list-runs names it; with -n show what it\n"
         "                       would do; never replaces a file\n"
         "      --list-runs      the kept runs: name (start time), files, state\n"
         "  -h, --help           this text\n"
         "      --version        the program's name and version\n"
         "\n"
         "The change log (or, after /step:3, the preview) is printed when the work\n"
         "is done, coloured on a terminal unless NO_COLOR is set or TERM=dumb;\n"
         "control characters in what is printed show escaped (\\n, \\x1b). An\n"
         "overwrite question is asked on the terminal; with none it is answered No.\n"
         "Settings live in TESSALY_REGISTRY_DIR when it is set.\n"
         "\n"
         "Exit status: 0 when every file ended \"(Completed)\" or \"(No Change}\" (or\n"
         "nothing was renamed), 1 when any file failed or ended with an error, 2 for\n"
         "bad usage, and then nothing is done.\n";
}

std::string WholeCommandLineUsageText() {
  return "usage: tessaly-cli.exe [OPTION]... [FILE;FILE...] [SWITCH]...\n"
         "\n"
         "Renames files without a window. Everything behind the options goes to\n"
         "the wizard as it is, as its command line: the files joined by \";\"\n"
         "(blanks need no quotes; double quotes are dropped), then the switches:\n"
         "  /settings:NAME       tick an option (LowerCase, Capitalize, ...)\n"
         "  /placementN:VALUE    placement N (1 to 6), e.g. /placement2:\"(none)\"\n"
         "  /step:N              run the wizard's steps 1 to N (3 previews, 4 renames)\n"
         "  /DefineUnwantedFormatting, /show, /hide, /exit\n"
         "\n"
         "Options, before the command line:\n"
         "  -n, --dry-run        show what would be renamed; rename nothing, store\n"
         "                       no setting\n"
         "      --json           write the change log as JSON Lines\n"
         "      --files-from F   take files from F, one a line (\"-\": standard\n"
         "                       input), for more than a command line holds; the\n"
         "                       command line then holds the switches only\n"
         "  -0, --null           names in --files-from end with a NUL byte\n"
         "  --                   the command line starts behind it\n"
         "      --undo [RUN]     take back the last run not yet undone, or RUN;\n"
         "                       with -n show what it would do\n"
         "      --list-runs      the kept runs: name (start time), files, state\n"
         "  -h, --help           this text\n"
         "      --version        the program's name and version\n"
         "\n"
         "The change log is printed when the work is done, coloured on a console\n"
         "unless NO_COLOR is set. An overwrite question is asked on the console;\n"
         "with none it is answered No. Settings live in the registry.\n"
         "\n"
         "Exit status: 0 when every file ended well (or nothing was renamed), 1\n"
         "when any file failed or ended with an error, 2 for bad usage.\n";
}

std::string VersionText() {
  return "tessaly-cli (" + std::string(kProgramTitle) + ") " +
         std::to_string(kProgramVersion.major) + "." + std::to_string(kProgramVersion.minor) +
         "." + std::to_string(kProgramVersion.revision) + "\n";
}

}  // namespace tessaly::cli
