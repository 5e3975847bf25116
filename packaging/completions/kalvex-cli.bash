# Bash completion of kalvex-cli: subcommands, their options, the values of options that have few,
# and the paths of point files.

# Offers whole words, quoted where the shell wants it.
_kalvex_cli_words() {
    local current=$1 word
    shift
    for word; do
        [[ $word == "$current"* ]] && COMPREPLY+=("$(printf '%q' "$word")")
    done
}

_kalvex_cli_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

# LINE is TYPE[,KEY=VALUE]...:TEXT. The shell breaks words at "=" and ":", so the whole of it is
# taken from the line as typed.
_kalvex_cli_line() {
    local typed=${COMP_LINE:0:COMP_POINT}
    typed=${typed##*[[:space:]]}
    if [[ $typed == file*:* ]]; then
        _kalvex_cli_files "${1#:}"
    elif [[ $typed != *[,:=]* ]]; then
        compopt -o nospace 2>/dev/null
        _kalvex_cli_words "$1" decart: polar: parametric: file: implicit:
    fi
}

# The values of an option; fails for a word that is no option with a value.
_kalvex_cli_value() {
    case $1 in
        --quick) _kalvex_cli_words "$2" Init Trig 'Log(X)' 'exp(X)' X^2 -X^2 Standart ;;
        --grid-kind) _kalvex_cli_words "$2" rectangular polar ;;
        --form) _kalvex_cli_words "$2" paged single ;;
        --method) _kalvex_cli_words "$2" {0..12} ;;
        --max-angle) _kalvex_cli_words "$2" {1..4} ;;
        -o) _kalvex_cli_files "$2" ;;
        --at | --range | --approx-val | --approx-val2 | --beta1 | --beta2 | --window | --size | \
            --param | --width | --text-size) ;;
        *) return 1 ;;
    esac
}

_kalvex_cli_options() {
    local view="--window --quick --size --auto --max-angle --param --width --text-size --grid-kind
                --no-axes --no-grid --no-coords --no-labels"
    case $1 in
        normalise | explain) echo --implicit ;;
        check) echo --implicit --as-is ;;
        eval) echo --implicit --at --range ;;
        interpolate) echo --method --approx-val --approx-val2 --beta1 --beta2 --at --range ;;
        samples) echo $view ;;
        draw | table) echo $view -o ;;
        analyze) echo $view --form -o ;;
    esac
    echo -h --help --version
}

_kalvex_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command="" word
    COMPREPLY=()
    # An option's value may be given behind "=", which is a word of its own here.
    [[ $before == = ]] && before=${COMP_WORDS[COMP_CWORD - 2]}
    if [[ $current == = ]]; then
        before=${COMP_WORDS[COMP_CWORD - 1]}
        current=
    fi
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $word != -* ]]; then
            command=$word
            break
        fi
    done
    if [[ -n $command ]] && _kalvex_cli_value "$before" "$current"; then
        return
    fi
    if [[ $current == -* ]]; then
        _kalvex_cli_words "$current" $(_kalvex_cli_options "$command")
    elif [[ -z $command ]]; then
        _kalvex_cli_words "$current" normalise check eval explain interpolate points samples draw analyze table
    else
        case $command in
            interpolate | points) _kalvex_cli_files "$current" ;;
            samples | draw | analyze | table) _kalvex_cli_line "$current" ;;
        esac
    fi
}

complete -F _kalvex_cli kalvex-cli
