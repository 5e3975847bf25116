# Fish completion of kalvex-cli.
set -l subcommands normalise check eval explain interpolate points samples draw analyze table
set -l view '__fish_seen_subcommand_from samples draw analyze table'
set -l first "not __fish_seen_subcommand_from $subcommands"

complete -c kalvex-cli -f
complete -c kalvex-cli -s h -l help -d 'Print the help and exit'
complete -c kalvex-cli -l version -d 'Print the version and exit'

complete -c kalvex-cli -n $first -a normalise -d 'Print a text as it is rewritten'
complete -c kalvex-cli -n $first -a check -d 'Print the code and the message of the check'
complete -c kalvex-cli -n $first -a eval -d 'Evaluate a text'
complete -c kalvex-cli -n $first -a explain -d 'Print the syntax tree and the compiled program of a text'
complete -c kalvex-cli -n $first -a interpolate -d 'Join the points of a file by a method'
complete -c kalvex-cli -n $first -a points -d 'Print the points of a file'
complete -c kalvex-cli -n $first -a samples -d 'Print the samples of a line'
complete -c kalvex-cli -n $first -a draw -d 'Draw up to nine lines into a picture file'
complete -c kalvex-cli -n $first -a analyze -d 'Print the report on a line'
complete -c kalvex-cli -n $first -a table -d 'Write the table of points of a line'

complete -c kalvex-cli -n '__fish_seen_subcommand_from normalise check eval explain' -l implicit -d 'A function of x and y'
complete -c kalvex-cli -n '__fish_seen_subcommand_from check' -l as-is -d 'Do not rewrite the text first'
complete -c kalvex-cli -n '__fish_seen_subcommand_from eval interpolate' -l at -x -d 'A point'
complete -c kalvex-cli -n '__fish_seen_subcommand_from eval interpolate' -l range -x -d 'A,B,N'

complete -c kalvex-cli -n '__fish_seen_subcommand_from interpolate' -l method -x -a '(seq 0 12)' -d 'The method'
complete -c kalvex-cli -n '__fish_seen_subcommand_from interpolate' -l approx-val -x -d 'Terms, left boundary flag'
complete -c kalvex-cli -n '__fish_seen_subcommand_from interpolate' -l approx-val2 -x -d 'Right boundary flag'
complete -c kalvex-cli -n '__fish_seen_subcommand_from interpolate' -l beta1 -x -d 'Bias, left boundary value'
complete -c kalvex-cli -n '__fish_seen_subcommand_from interpolate' -l beta2 -x -d 'Tension, right boundary value'
complete -c kalvex-cli -n '__fish_seen_subcommand_from interpolate points' -F

complete -c kalvex-cli -n $view -l window -x -d 'XMIN,XMAX,YMIN,YMAX'
complete -c kalvex-cli -n $view -l quick -x -a 'Init Trig Log\(X\) exp\(X\) X^2 -X^2 Standart' -d 'Window of the menu QUICK'
complete -c kalvex-cli -n $view -l size -x -d 'WxH'
complete -c kalvex-cli -n $view -l auto -d 'Fit the y bounds to the curves'
complete -c kalvex-cli -n $view -l max-angle -x -a '1 2 3 4' -d 'Turns of a polar curve'
complete -c kalvex-cli -n $view -l param -x -d 'MIN,MAX'
complete -c kalvex-cli -n $view -l width -x -d 'Pen width in pixels'
complete -c kalvex-cli -n $view -l text-size -x -d 'Height of the names in pixels'
complete -c kalvex-cli -n $view -l grid-kind -x -a 'rectangular polar' -d 'Kind of the grid'
complete -c kalvex-cli -n $view -l no-axes -d 'Leave the axes out'
complete -c kalvex-cli -n $view -l no-grid -d 'Leave the grid out'
complete -c kalvex-cli -n $view -l no-coords -d 'Leave the coordinate numbers out'
complete -c kalvex-cli -n $view -l no-labels -d 'Leave the function names out'
complete -c kalvex-cli -n '__fish_seen_subcommand_from analyze' -l form -x -a 'paged single' -d 'Form of the report'
complete -c kalvex-cli -n '__fish_seen_subcommand_from draw' -s o -r -d 'The picture (.bmp .png .svg .pdf .txt)'
complete -c kalvex-cli -n '__fish_seen_subcommand_from analyze table' -s o -r -d 'The file to write'
complete -c kalvex-cli -n $view -a 'decart: polar: parametric: file: implicit:' -d 'Type of the line'
