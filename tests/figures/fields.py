"""The columns of each command's table: name and kind. Kinds: tN a text of at most N characters, n a number,
d a moment, b a truth."""

FIELDS = {
    "PrintIncome": "mdate:d edate:d date:t50 general_income:n member_income:n pp_income:n other_income:n discount:n "
                   "paid_out:n total_income:n print_count:n pp_count:n general_count:n member_count:n work_time:n "
                   "total_time:n pc_count:n",
    "PrintMemberUsage": "user_name:t30 membership:t30 use_begin:d use_end:d use_time:n cost:n",
    "PrintPPUsage": "user_name:t30 membership:t30 use_begin:d use_end:d use_time:n cost:n",
    "PrintPCUsage": "pcname:t20 memb_time:n gen_time:n total_use:n net_income:n print_count:n print_incom:n "
                    "total_income:n discount:n net_total:n use_percent:n",
    "PrintInternetUsage": "device_name:t40 use_Date:t30 use_time:n",
    "PrintMembersIncom": "paydate:d name:t50 amount:n membership:t20",
    "PrintPayout": "amount:n pay_date:d details:t255",
    "PrintOtherIncome": "amount:n pay_date:d details:t255",
    "PrintServicesIncome": "details:t255 itemCount:n Price:n pDate:d hostname:t50",
    "PrintUsage": "host_name:t30 user_name:t30 use_begin:d use_time:n idletime:n minutecost:n printed:n othercost:n "
                  "discount:n cost:n user:t30",
    "PrintMembersInfo": "Name:t50 membership:t50 begindate:d usedTime:n reminTime:n totalpay:n remincost:n",
    "PrintUsersIncome": "userid:n usedate:d spvname:t50 worktime:n totaluse:n localtime:n memberstime:n print:n "
                        "mainincome:n discount:n membersincome:n otherincome:n prepaid:n",
    "PrintPPCards": "account:t50 serial1:n id1:t20 pass1:t15 serial2:n id2:t20 pass2:t15",
    "PrintPPInfo": "acctid:n name:t40 srcdisabled:b reg_date:d pp_id:n se_id:t20 disabled:b use_date:d expired:b "
                   "use_time:n use_type:n used_time:n expiry:n",
    "PrintAudit": "type:t90 date:d user_name:t50 details:t255",
    "PrintPrintLog": "printer:t90 machine:t20 date:d pages:n printed:n usage:t30 charged:n docment:t150 user:t40",
}
