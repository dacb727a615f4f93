(echo "no parser here")
