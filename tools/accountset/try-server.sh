#!/bin/sh
# Makes, copies and checks account sets on the server that tools/with-server has started. Called with the tool.
set -eu
tool=$1
server=server://$ZORVEK_SERVER
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
refuses() {
  if "$@" 2>/dev/null; then
    echo "was not refused: $*" >&2
    exit 1
  fi
}
export ACCOUNTSET_LOGIN_PASSWORD='till 7;'

"$tool" create "$folder/firm.mdb" --demo
"$tool" copy "$folder/firm.mdb" "$server/try_tool" --login till | tail -n 1
"$tool" copy "$server/try_tool" "$folder/back.mdb" | grep -c '^same'
"$tool" check "server://till:till%207%3B@${ZORVEK_SERVER##*@}/try_tool"
# A dump that was taken while it stood can be put back.
PGPASSWORD=${ZORVEK_SERVER#*:}
PGPASSWORD=${PGPASSWORD%@*} PGUSER=${ZORVEK_SERVER%%:*} PGHOST=127.0.0.1 PGPORT=${ZORVEK_SERVER##*:}
export PGPASSWORD PGUSER PGHOST PGPORT
pg_dump -Fc -f "$folder/dump" try_tool
dropdb try_tool
pg_restore -C -d postgres "$folder/dump"
"$tool" check "server://till:till%207%3B@${ZORVEK_SERVER##*@}/try_tool"
# What stands is left as it is; who is not let in is told so; half an address is none.
refuses "$tool" create --server "$server/try_tool" --login till
refuses "$tool" copy "$folder/firm.mdb" "$server/try_tool" --login till
refuses "$tool" check "server://till:wrong@${ZORVEK_SERVER##*@}/try_tool"
refuses "$tool" check "server://$ZORVEK_SERVER"
refuses "$tool" create --server "$server/try_other"
