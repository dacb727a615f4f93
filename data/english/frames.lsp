; Which preposition a noun or a verb likes behind it: a reason for, an increase in; depends on, looks for. These tell
; a phrase that belongs to the noun from one that belongs to the verb. Words are base forms.

(defmacro behind (form words)
  (and (pitem-modifier (pitem-attvec (contain ((pform form))))) (pitem-attvec (comp (att-str-val lexitem) (in words)))))

(defun noun-has-frame ()
  (or (behind for (reason need request demand search desire respect responsibility support preparation room price
                   cost payment bid candidate plan recipe basis proposal budget deadline contract market
                   replacement excuse argument love opportunity vote chance offer recommendation requirement
                   suggestion fee charge ticket permit treatment cure home company center department institute
                   ministry minister secretary name word term))
      (behind in (increase decrease rise fall change interest role difference experience part participation
                  decline drop investment belief confidence faith growth reduction improvement specialist expert
                  war election hotel restaurant place city town village people life degree class course))
      (behind on (attack effect impact information tax report book article influence restriction limit ban opinion
                  advice emphasis focus view comment data research war tip note decision agreement deal expert
                  discount))
      (behind to (access answer approach attention damage key solution threat trip visit response reaction
                  reference right way letter return introduction commitment contribution exception alternative
                  entrance limit link flight train attachment amendment change))
      (behind about (information question concern book article idea thought story news talk doubt fact complaint
                     conversation anything something nothing thing worry opinion film movie song))
      (behind with (problem relationship contact meeting experience conversation agreement deal trouble connection
                    interview contract relation partnership cooperation war people room house car))
      (behind from (letter message email mail call report quote response excerpt people pressure news revenue income))
      (behind between (difference relationship gap conflict war agreement border distance connection choice line))
      (behind against (war protest fight case action crime campaign struggle threat attack))))

(defun verb-has-frame ()
  (or (behind for (look wait ask search pay apply care call leave vote hope prepare use charge work arrange buy
                   thank blame))
      (behind on (depend rely focus concentrate base spend insist count agree put work rest turn))
      (behind to (go come give send talk speak listen belong lead refer write return reply respond move add bring
                  take compare drive travel fly walk say explain apply get relate forward submit offer))
      (behind with (deal work agree talk meet start begin end help provide replace share fill cover discuss compare
                    live play stay go come associate))
      (behind from (come suffer hear learn benefit recover receive get buy take remove order download move go return
                    keep stop prevent steal borrow fall rise))))
