#!/bin/bash
# Every operator's message of the program has its entry in the guide.
exec "$(dirname "$0")/../guide_messages.py"
