# Running fuzz targets. Source it after house.sh.
# shellcheck shell=bash

# seeds_of NAME BUILD_FOLDER: the folders of a target's seeds: those of the repository, and those that the build has made.
seeds_of() {
    local folder
    for folder in "$root/fuzz/corpus/$1" "$2/fuzz/seeds/$1"; do [ ! -d "$folder" ] || echo "$folder"; done
}

# fuzz_target TARGET SECONDS WORK OPTION...: lets a target find inputs, in the corpus WORK/corpus and out of its seeds. What makes
# it fail stays in WORK/found.
fuzz_target() {
    local target=$1 seconds=$2 work=$3 seeds=()
    shift 3
    mkdir -p "$work/corpus" "$work/found"
    # Texts are short and many: whole stacks for each allocation, and a long memory for what was freed, are dear. An input that is
    # found is looked at without this.
    local -x ASAN_OPTIONS=malloc_context_size=1:quarantine_size_mb=16:max_malloc_fill_size=64
    mapfile -t seeds < <(seeds_of "${target##*/fuzz_}" "${target%/bin/*}")
    "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -verbosity=1 -print_final_stats=1 \
        -artifact_prefix="$work/found/" "$@" "$work/corpus" "${seeds[@]}"
}
