// The numbers of the commands. Those below 40000 are fixed: they are part of the program's
// resources, and values are computed from them (the number of a colour is that of its command less
// 32776). Those from 40000 up belong to entries without a fixed number and may change.
#pragma once

namespace kalvex {

enum class CommandId : int {
    None = 0,  ///< a separator, or a submenu whose state never changes

    // Main window.
    Select = 32772,
    Draw = 32773,
    Delete = 32774,
    Exit = 32775,
    Red = 32777,
    Orange = 32778,
    Violet = 32779,
    Green = 32780,
    Blue = 32781,
    Magenta = 32782,
    Cyan = 32783,
    Black = 32784,
    Great = 32785,
    Polar = 32787,
    Decart = 32788,
    Parametric = 32789,
    Options = 32790,
    About = 32791,
    Help = 32867,
    Analyze = 32868,

    // Soft keys of the report.
    ReportOk = 32870,
    FunctionToFile = 32913,
    AnalizFunction = 32914,

    File = 32910,
    UnselectAll = 32915,
    LeastSquares = 32919,
    DividedDifferences = 32920,
    BSplines = 32921,
    BetaSplines = 32922,
    OverhauserNonuniform = 32923,
    OverhauserUniform = 32924,
    Overhauser = 32925,
    ConstantSpline = 32926,
    LinearSpline = 32927,
    QuadraticSpline = 32928,
    CubicSpline = 32929,
    CubicHermite = 32930,
    Largange = 32931,  // KEEP: spelled as its menu word and its method
    Implicit = 32932,

    // Popup menu of an edit line.
    Cut = 32794,
    EditHelp = 32795,
    Copy = 32797,
    Paste = 32798,
    Undo = 32799,
    SelectText = 32804,

    // Function names that the popup menu inserts.
    InsertSin = 32800,
    InsertCos = 32801,
    InsertTg = 32802,
    InsertCtg = 32803,
    InsertAcos = 32843,
    InsertAsin = 32844,
    InsertAtg = 32845,
    InsertSh = 32846,
    InsertCh = 32847,
    InsertTh = 32848,
    InsertInt = 32850,
    InsertFrac = 32851,
    InsertAbs = 32852,
    InsertGamma = 32882,
    InsertPsi = 32887,
    InsertDawsonF = 32888,
    InsertEi = 32889,
    InsertErf = 32892,
    InsertLi = 32893,
    InsertAi = 32895,
    InsertBi = 32896,
    InsertCf = 32898,
    InsertSf = 32899,
    InsertSi = 32901,
    InsertCi = 32905,
    InsertShi = 32904,
    InsertChi = 32903,

    // Soft keys of the dialogs. Those of help and of the About box close their own window and pass
    // through no menu, so that no other source names them; their numbers stay reserved.
    OptionsSave = 32838,
    OptionsCancel = 32840,
    HelpOk = 32841,
    AboutOk = 32877,

    // Without a number of their own.
    ApproxTypeMenu = 40000,  ///< the submenu that only a `File` line shows
    GraphTable,
    FullScreen,
    ViewWindowDialog,
    Calculator,
    Picture,
    GraphExit,
    Trace,
    ZoomBox,
    ZoomFactor,
    ZoomIn,  ///< picks its centre
    ZoomOut,
    ZoomAuto,
    ZoomPre,
    QuickInit,  ///< the seven fixed windows, in menu order
    QuickTrig,
    QuickLogX,
    QuickExpX,
    QuickXSquared,
    QuickMinusXSquared,
    QuickStandart,
    PopupFullScreen,
    PopupZoomIn,  ///< zooms about the point where the popup was opened
    PopupZoomOut,
    SavePictureAs,
    CopyPicture,
    Print,
    ReportToFile,
};

}  // namespace kalvex
