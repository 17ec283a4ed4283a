#!/bin/sh
# Makes, copies and checks account sets on the server that tools/with-server has started. Called with the tool.
set -eu
# shellcheck source=tools/refuses.sh
. "$(dirname "$0")/../refuses.sh"
tool=$1
user=${ZORVEK_SERVER%%:*}
address=${ZORVEK_SERVER##*@}
password=${ZORVEK_SERVER#*:}
password=${password%@*}
server=server://$user@$address
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
as_till() {
  ACCOUNTSET_PASSWORD='till 7;' "$@"
}
export ACCOUNTSET_PASSWORD="$password" ACCOUNTSET_LOGIN_PASSWORD='till 7;'

"$tool" create "$folder/firm.mdb" --demo
"$tool" copy "$folder/firm.mdb" "$server/try_tool" --login till | tail -n 1
"$tool" copy "$server/try_tool" "$folder/back.mdb" | grep -c '^相同'
as_till "$tool" check "server://till@$address/try_tool"
# A dump of the database can be restored.
PGPASSWORD=$password PGUSER=$user PGHOST=127.0.0.1 PGPORT=${ZORVEK_SERVER##*:}
export PGPASSWORD PGUSER PGHOST PGPORT
pg_dump -Fc -f "$folder/dump" try_tool
dropdb try_tool
pg_restore -C -d postgres "$folder/dump"
as_till "$tool" check "server://till@$address/try_tool"
# A repair leaves what was there before it in a file.
psql -q -d try_tool -c "update TabFee set State='作废' where Code=(select max(Code) from TabFee)"
(cd "$folder" && as_till "$tool" check --repair "server://till@$address/try_tool" | tail -n 1 | grep '已更正 2 处，全部相符')
refuses "$tool" check "$folder"/try_tool.mdb.*.bak
# What exists is left as it is; a failed login is reported; an incomplete address is refused.
refuses "$tool" create --server "$server/try_tool" --login till
refuses "$tool" copy "$folder/firm.mdb" "$server/try_tool" --login till
refuses "$tool" check "server://till@$address/try_tool"
refuses "$tool" check "$server"
refuses "$tool" create --server "$server/try_other"
# A password comes from the environment or the terminal, and from nowhere else.
refuses "$tool" check "server://till:till%207%3B@$address/try_tool"
unset ACCOUNTSET_PASSWORD
refuses setsid -w "$tool" check "server://till@$address/try_tool" </dev/null
echo 'till 7;' | script -qec "'$tool' check 'server://till@$address/try_tool'" /dev/null | grep '全部相符'
