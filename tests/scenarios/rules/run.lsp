(run R A P)
