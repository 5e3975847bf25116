// The commands that give the graph away: to files, to the clipboard, to a printer.
#pragma once

#include <QString>

#include "base/flow.h"
#include "commands/picture_size.h"
#include "graph/graph_state.h"
#include "settings/registry.h"
#include "ui/graph/print_graph.h"
#include "workspace/workspace.h"

namespace kalvex {

class GraphWindow;

/// What the user chose last, kept until the end of the program.
struct PictureChoices {
    PictureSize size;
    PrintChoices print;
};

/// What these commands work on. The records live as long as the program.
struct PictureSource {
    GraphWindow& window;
    const GraphState& graph;
    Workspace& workspace;
    const Registry& registry;
    const QString& pictureFolder;
    QString& lastFolder;  ///< of any file that was chosen; may be empty
    PictureChoices& choices;
    ShowBox show;
};

/// `Picture`: the next numbered bitmap in the folder for pictures.
void ExportShownPicture(const PictureSource& source);

/// `Save Picture As...`: asks for a file, and for a size when it is a PNG picture. The next dialog
/// starts in the same folder and with the same size.
void AskForPicture(const PictureSource& source);

/// `Copy Picture`
void CopyShownPicture(const PictureSource& source);

/// `Print...`: opens the preview of the page.
void PrintShownGraph(const PictureSource& source);

}  // namespace kalvex
