# Completions of rellinor for fish.

set -l commands import check detect sources layouts
set -l sources auto chrome lastPass dashlane onePassword tirel keePass keePassXC firefox
set -l formats summary table json tirel credential-exchange

complete -c rellinor -f
complete -c rellinor -s h -l help -d 'Show how to use it'

set -l none "not __fish_seen_subcommand_from $commands"
complete -c rellinor -n $none -s V -l version -d 'Show the version'
complete -c rellinor -n $none -a import -d 'Import files and show what they hold'
complete -c rellinor -n $none -a detect -d 'Tell what files are'
complete -c rellinor -n $none -a check -d 'Tell what an import would leave out'
complete -c rellinor -n $none -a sources -d 'List the sources'
complete -c rellinor -n $none -a layouts -d 'List the layouts'

set -l paths '__fish_seen_subcommand_from import detect check'
complete -c rellinor -n $paths -F
set -l kind '__fish_seen_subcommand_from import check'
complete -c rellinor -n $kind -s s -l source -x -a "$sources" -d 'Import as this source does'
complete -c rellinor -n $kind -s l -l layout -x -a "(rellinor layouts | string replace -r ' .*' '')" \
    -d 'Read as this layout'
set -l told '__fish_seen_subcommand_from detect check'
complete -c rellinor -n $told -s f -l format -x -a 'text json' -d 'For people or programs'
set -l import '__fish_seen_subcommand_from import'
complete -c rellinor -n $import -s f -l format -x -a "$formats" -d 'How the records are shown'
complete -c rellinor -n $import -s r -l reveal -d 'Show secrets instead of masking them'
complete -c rellinor -n $import -s o -l output -r -F -d 'Write to this new file'
complete -c rellinor -n $import -l force -d 'Replace the output file'
complete -c rellinor -n $import -l encrypted -d 'Take encrypted passwords into a Tirel export'
complete -c rellinor -n $import -l strict -d 'Fail if anything is left out or worth a look'
complete -c rellinor -n $import -l keep-importer -d 'Use one importer for all paths'
