// Loads the settings of a file and stores others, as a start and a Draw do, for tests in which one
// call fails.
//   store_settings FILE NUMBER      the lines and the window get values that depend on NUMBER
// Exit status: 0 all stored, 1 not.
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "settings/registry_file.h"
#include "settings/settings.h"

namespace {

using namespace kalvex;

bool StoreAll(const std::string& path, int number) {
    const Registry registry = OpenRegistryFile(path);
    Workspace workspace;
    if (CreateDefaultKeys(registry)) std::puts("first start");
    const auto show = [](const MessageBox& box) {
        std::fprintf(stderr, "box %zu\n", box.text.size());
        return MessageAnswer::Ok;
    };
    LoadFunctionTexts(registry, workspace, show);
    LoadFunctionSettings(registry, workspace, show);
    LoadSettings(registry, workspace, show);
    CreateMissingKeys(registry, workspace);
    for (std::size_t slot = 0; slot < workspace.lines.size(); ++slot) {
        workspace.lines[slot] = u"x+" + std::u16string(static_cast<std::size_t>(number), u'7');
        workspace.functions[slot].color = number % 9 + 1;
    }
    workspace.view.Xmax = number;
    return WriteTogether(registry, [&] {
        return StoreView(registry, workspace.view, workspace.options) &&
               StoreFunctionSettings(registry, workspace.functions) &&
               StoreFunctionTexts(registry, workspace.lines);
    });
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 2;
    try {
        if (StoreAll(arguments[1], std::atoi(arguments[2]))) return 0;
        std::fputs("not stored\n", stderr);
    } catch (const std::bad_alloc&) {
        std::fputs("not enough memory\n", stderr);
    }
    return 1;
}
