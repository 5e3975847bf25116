// draw: draws up to nine lines into a picture file. Fonts and painter are those of the windows, but
// no window system is needed.
#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

#include "base/memory_room.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/line_argument.h"
#include "cli/number_argument.h"
#include "cli/view_options.h"
#include "cli/write_file.h"
#include "painter/painter.h"
#include "painter/write_picture.h"

namespace kalvex {
namespace {

struct Arguments {
    std::string picture;
    std::string format;
    std::vector<std::string> lines;
    std::optional<double> scale;
};

/// @param text a number from 0.25 to 16
double ScaleOf(const std::string& text) {
    constexpr double kSmallest = 0.25;
    constexpr double kLargest = 16.0;
    const auto numbers = ParseNumbers(text, 1);
    if (!numbers || !((*numbers)[0] >= kSmallest && (*numbers)[0] <= kLargest))
        WrongUsage("--scale", "a number from 0.25 to 16 expected");
    return (*numbers)[0];
}

PictureStyle StyleFor(const Arguments& arguments, const Options& options,
                      const PictureFormat& format) {
    if (arguments.scale && format.playing) WrongUsage("--scale", "only a .png picture has a scale");
    return {PlayingOf(options), arguments.scale.value_or(1.0)};
}

/// The format that is asked for, else that of the name. Standard output has no name; without
/// --format it gets the first format.
const PictureFormat& FormatFor(const Arguments& arguments) {
    const bool asked = !arguments.format.empty();
    const std::string& path = arguments.picture;
    const auto* const format =
        PictureFormatOf(asked ? '.' + arguments.format : path, FormatsOf::Tool);
    if (format != nullptr) return *format;
    const std::string endings = PictureEndings(FormatsOf::Tool);
    if (asked) WrongUsage("--format", "one of " + endings + " without its dot expected");
    if (IsStandardOutput(path)) return PictureFormats().front();
    WrongUsage("-o", "a name that ends in " + endings + " expected");
}

/// Suppresses Qt's warnings about the locale and the session's folders on standard error: the
/// picture does not depend on them. The message of a fatal error still appears.
void DropRemarks(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtFatalMsg) return;
    const std::string line = message.toStdString() + '\n';
    std::fputs(line.c_str(), stderr);
    std::_Exit(static_cast<int>(ExitStatus::NotWritten));  // Qt would end the process by a signal
}

ExitStatus Run(ViewOptions& view, const Arguments& arguments) {
    const PictureFormat& format = FormatFor(arguments);
    const PictureStyle style = StyleFor(arguments, view.options, format);
    if (PlayingOf(format, style) == Playing::Classic) view.state.contours = false;
    FunctionList functions;
    if (!PrepareLines(functions, arguments.lines)) return ExitStatus::Rejected;

    qInstallMessageHandler(DropRemarks);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    std::string name = "kalvex-cli";
    char* names[] = {name.data(), nullptr};
    DemandMemory(kMemoryOfLibraries);
    const QGuiApplication application(count, names);
    const DrawList list = DrawOffScreen(view, functions, PainterTextMeasure());
    if (!HasFontsOf(list)) return TellNotWritten(arguments.picture, "picture", kNoFont);
    return WriteFile(
        arguments.picture, [&](const TakeBytes& take) { return format.make(list, style, take); },
        "picture");
}

}  // namespace

void AddDrawCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command = AddCommand(tool, "draw", "Draw up to nine lines into a picture file.");
    const std::shared_ptr<ViewOptions> view = AddViewOptions(*command);
    const auto arguments = std::make_shared<Arguments>();
    command
        ->add_option(
            "-o", arguments->picture,
            "The picture: " + PictureEndings(FormatsOf::Tool) +
                " (its drawing records as text); - is standard output (without --format a PNG).")
        ->required()
        ->type_name("PICTURE");
    command
        ->add_option("--format", arguments->format,
                     "The format, as an ending without its dot, whatever the name ends in.")
        ->type_name("FORMAT");
    command
        ->add_option_function<std::string>(
            "--scale", [arguments](const std::string& text) { arguments->scale = ScaleOf(text); },
            "Device pixels per pixel of the picture, 0.25 to 16 (default 1; .png only).")
        ->type_name("R");
    command->add_option("LINE", arguments->lines, "TYPE[,KEY=VALUE]...:TEXT")
        ->required()
        ->allow_extra_args();
    command->footer(LineHelp() + "\n\n" + tool.get_footer());
    command->callback([view, arguments, &status] { status = Run(*view, *arguments); });
}

}  // namespace kalvex
