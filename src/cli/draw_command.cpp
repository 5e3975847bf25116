// draw: draws up to nine lines into a picture file. Fonts and painter are those of the windows, but
// no window system is needed.
#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <QString>
#include <cstdio>
#include <memory>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/line_argument.h"
#include "cli/view_options.h"
#include "painter/painter.h"
#include "painter/write_picture.h"

namespace kalvex {
namespace {

struct Arguments {
    std::string picture;
    std::vector<std::string> lines;
};

const PictureFormat& FormatFor(const std::string& path) {
    const auto* format = PictureFormatOf(QString::fromStdString(path), FormatsOf::Tool);
    if (format != nullptr) return *format;
    WrongUsage("-o", "a name that ends in " + PictureEndings(FormatsOf::Tool) + " expected");
}

/// Suppresses Qt's warnings about the locale and the session's folders on standard error: the
/// picture does not depend on them. The message of a fatal error still appears.
void DropRemarks(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtFatalMsg) return;
    const std::string line = message.toStdString() + '\n';
    std::fputs(line.c_str(), stderr);
}

ExitStatus Run(ViewOptions& view, const Arguments& arguments) {
    const PictureFormat& format = FormatFor(arguments.picture);
    FunctionList functions;
    if (!PrepareLines(functions, arguments.lines)) return ExitStatus::Rejected;

    qInstallMessageHandler(DropRemarks);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    std::string name = "kalvex-cli";
    char* names[] = {name.data(), nullptr};
    const QGuiApplication application(count, names);
    const DrawList list = DrawOffScreen(view, functions, PainterTextMeasure());
    if (format.write(QString::fromStdString(arguments.picture), list)) return ExitStatus::Done;
    const std::string message = "The picture could not be written: " + arguments.picture + '\n';
    std::fputs(message.c_str(), stderr);
    return ExitStatus::NotWritten;
}

}  // namespace

void AddDrawCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command = AddCommand(tool, "draw", "Draw up to nine lines into a picture file.");
    const std::shared_ptr<ViewOptions> view = AddViewOptions(*command);
    const auto arguments = std::make_shared<Arguments>();
    command
        ->add_option(
            "-o", arguments->picture,
            "The picture: " + PictureEndings(FormatsOf::Tool) + " (its drawing records as text).")
        ->required()
        ->type_name("PICTURE");
    command->add_option("LINE", arguments->lines, "TYPE[,KEY=VALUE]...:TEXT")
        ->required()
        ->allow_extra_args();
    command->footer(LineHelp() + "\n\n" + tool.get_footer());
    command->callback([view, arguments, &status] { status = Run(*view, *arguments); });
}

}  // namespace kalvex
