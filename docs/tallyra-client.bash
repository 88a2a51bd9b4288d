# Completion of tallyra-client for bash. To be sourced.
_tallyra_client() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} first= second= words= i plain=0
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case ${COMP_WORDS[i]} in
    --db | --user | --language | --kind | --config) ((++i)) ;;
    -*) ;;
    *) ((++plain))
      if [ -z "$first" ]; then first=${COMP_WORDS[i]}; elif [ -z "$second" ]; then second=${COMP_WORDS[i]}; fi ;;
    esac
  done
  # What follows "call CLASS" is what follows the class alone.
  if [[ $first == call && $plain == 2 ]]; then first=$second second=; fi
  case $previous in --db | --config | --output | import | batch)
    COMPREPLY=($(compgen -f -- "$current"))
    return ;;
  esac
  if [[ $current == -* ]]; then
    case "$first $second" in
    'close '*) words='--force --backup --break-lock --progress --no-progress' ;;
    'approve '*) words='--break-lock' ;;
    'reopen '*) words='--force --break-lock' ;;
    'count sheet') words='--all --blind' ;;
    'count import') words='--number --department --date' ;;
    'count approve') words='--force --break-lock' ;;
    'count undo') words='--force --break-lock' ;;
    'report '*) words='--output' ;;
    'list '*) words='--from --to --type --status --department --limit' ;;
    'log '*) words='--from --to --action --limit' ;;
    'help '*) words='--man --completion' ;;
    esac
    [ -n "$first" ] || words='--version --list'
    words+=' --db --user --language --kind --csv --json --quiet --yes --config --help'
  elif [ -z "$first" ]; then
    words='init upgrade doctor grant revoke rights check close verify approve reopen status count
      report list show log batch call help CTranHead CTranDetail CCheckHead CCheckDetail
      CStkrptFuns CPartCostSet CStockClose CRevAddr CSTKController CStkShipNote'
  elif [ -z "$second" ]; then
    case $first in
    count) words='sheet import approve undo' ;;
    list) words='CTranHead CTranDetail CCheckHead CCheckDetail CStockClose CPartCostSet CRevAddr CSTKController
      CStkShipNote' ;;
    call) words='CTranHead CTranDetail CCheckHead CCheckDetail CStkrptFuns CPartCostSet CStockClose
      CRevAddr CSTKController CStkShipNote' ;;
    help) words='init upgrade doctor grant revoke rights check close verify approve reopen status count
      report list show log batch call help CTranHead CTranDetail CCheckHead CCheckDetail
      CStkrptFuns CPartCostSet CStockClose CRevAddr CSTKController CStkShipNote' ;;
    CTranHead) words='Read Insert Update Delete ValidCloseDT' ;;
    CTranDetail) words='Read Insert Update Delete InsertRTN UpdateRTN PORefQty POExam OrderTypeExam IssuedOrRtnQty
      GetMRPQty' ;;
    CCheckHead) words='Read Insert Update Delete ValidCloseDT' ;;
    CCheckDetail) words='Read Insert Update Delete' ;;
    CStkrptFuns) words='GetCheckBalance' ;;
    CPartCostSet) words='Read Insert Update Delete' ;;
    CStockClose) words='Read Insert Update Delete STKMonthCloseDept STKMonthClose' ;;
    CRevAddr) words='Read Insert Update Delete' ;;
    CSTKController) words='Read Insert Update Delete' ;;
    CStkShipNote) words='Read Insert Update Delete' ;;
    esac
  elif [[ $first == grant || $first == revoke ]]; then
    if [ $plain = 2 ]; then words='STK010POREV STK010PORTN STK011PORTN STK020MISS STK020MISSSO STK021RTN1 STK021RTNSO
      STK022REVMO STK022REVSO STK024MRPL STK026CHECK STK027CLOSE STK028ADDR STK030SHIP
      STK030SHIPN STK032USER STK050PCOST'; else words='all insert update delete approve unapprove cancel finish owner'; fi
  fi
  COMPREPLY=($(compgen -W "$words" -- "$current"))
}
complete -o default -F _tallyra_client tallyra-client
