# awk -v heading="report markov-processes" -f blocks.awk PAGE...: the fenced blocks of pages that begin with
# ```heading, without the fences; a line "---" ends each.
/^```/ && inside { print "---"; inside = 0; next }
$0 == "```" heading { inside = 1; next }
inside { print }
