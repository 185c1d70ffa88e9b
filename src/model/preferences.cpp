#include "model/preferences.h"

OtherPreferencesData otherPreferencesData;
EpsViewPreferencesData epsViewPreferencesData;
TexViewPreferencesData texViewPreferencesData;
EnvironmentPreferencesData environmentPreferencesData;
GridPreferences gridPreferences;
ExportPreferences exportPreferences;
LibrarySettings librarySettings;

TexViewPreferencesData::TexViewPreferencesData()
    : oldDefaultLatexCommand("latex -interaction=batchmode -jobname OUTFILE INFILE"),
      defaultLatexCommand("latex -interaction=batchmode -output-directory TEMPDIR "
                          "-jobname OUTFILE TEMPDIR/INFILE"),
      latexCommand(defaultLatexCommand),
      oldDefaultDvipsCommand("dvips -quiet -E* -o OUTFILE INFILE"),
      defaultDvipsCommand("dvips -quiet -E* -o TEMPDIR/OUTFILE TEMPDIR/INFILE"),
      dvipsCommand(defaultDvipsCommand), documentFrame("\\documentclass[11pt]{article}\r\n"
                                                       "\\usepackage{color}\r\n"
                                                       "\\usepackage[latin1]{inputenc}\r\n"
                                                       "\\begin{document}\r\n"
                                                       "\\begin{titlepage}\r\n"
                                                       "COLORTOKEN\r\n"
                                                       "TEXTTOKEN\r\n"
                                                       "\\end{titlepage}\r\n"
                                                       "\\end{document}")
{
}

// One line ends in CR LF, all others in LF: stored frames of users compare equal with this.
ExportPreferences::ExportPreferences()
    : documentFrame(
          "\\documentclass[]{article}\n"
          "\\usepackage[PAPERSIZETOKEN,PAGEORIENTATIONTOKEN,scale=1.0,margin=0pt]{geometry}\n"
          "\\usepackage{color}\n"
          "\\usepackage[latin1]{inputenc}\r\n"
          "\\usepackage{graphicx}\n"
          "\\usepackage{mathrsfs}\n"
          "\\thispagestyle{empty}\n"
          "\n"
          "\\begin{document}\n"
          "\n"
          "\\input{\"INPUTTEXFILETOKEN\"}\n"
          "\n"
          "\\end{document}\n")
{
}
